#pragma once

#include <functional>

#include <QMenu>
#include <QPointer>

#include "window/commands/CommandHost.h"

namespace korvel {

class CPrefsSheet;

/// What the menu Options has besides the colour schemes: the simulator, the receiver, the
/// preferences.
class OptionCommands {
 public:
    /// The host must outlive this.
    explicit OptionCommands(CommandHost& host) : host_(host) {}

    void addTo(QMenu& menu);

    /// Starts the simulator where and how it would be offered, or stops it. While a receiver tells
    /// where the aircraft is, the pilot is asked first.
    void simulate(bool on);
    void choosePort();
    /// Fuel on board and wind.
    void enterFuel();

    /// The preferences are about to open.
    std::function<void(CPrefsSheet&)> onPrefs;

 private:
    /// A command that opens a sheet on the document.
    template <class SheetType>
    void addSheet(QMenu& menu, Text name, const QList<QKeySequence>& keys);

    void startSimulator();
    void openPrefs();

    CommandHost& host_;
    QPointer<QAction> simulating_;
};

}  // namespace korvel
