#pragma once

#include <functional>
#include <string>

#include <QActionGroup>
#include <QMenu>

#include "screen/NightSwitch.h"
#include "window/commands/CommandHost.h"
#include "window/sheets/ConnectedSheet.h"

namespace korvel {

class ColorScheme;
class CPrefsSheet;
class DataFileSearch;

/// The colour schemes: a list of them, and one key for the night.
class SchemeCommands {
 public:
    /// All of them must outlive this.
    SchemeCommands(CommandHost& host, ColorScheme& scheme, const DataFileSearch& dataFiles);

    void addTo(QMenu& menu);

    /// Loads the scheme for this run. What shows colours is told by `onShown`.
    void show(const std::string& name);
    /// The one that the settings name.
    void showChosen();

    /// A few of the schemes to choose from when the pilot has not seen any yet.
    std::vector<ConnectedSheet::Choice> firstChoices();
    /// Has the preferences ask for the scheme, too.
    void offerIn(CPrefsSheet& prefs);

    std::function<void()> onShown;

 private:
    /// Shows a scheme and remembers it.
    void choose(const std::string& name);
    std::string chosen();

    CommandHost& host_;
    ColorScheme& scheme_;
    const DataFileSearch& dataFiles_;
    QActionGroup actions_{nullptr};
    NightSwitch night_;
};

}  // namespace korvel
