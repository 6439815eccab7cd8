#pragma once

#include <functional>
#include <memory>
#include <string>

#include <QActionGroup>
#include <QMainWindow>

#include "app/CKorvelView.h"
#include "app/Sheet.h"
#include "config/StringTable.h"

namespace korvel {

class CKorvelDoc;
class ColorScheme;
class DataFileSearch;
class DisplayFonts;
class ProfileFile;

/// What the frame and its view work with; all of it outlives them.
struct FrameParts {
    CKorvelDoc& document;
    ProfileFile& profile;
    ColorScheme& scheme;
    const DataFileSearch& dataFiles;
    LabelCache& labels;
};

/// The window: menus with the key of each command beside it, and the view below.
class CMainFrame final : public QMainWindow {
 public:
    explicit CMainFrame(const FrameParts& parts);

    CKorvelView& view() { return view_; }

    /// Shows the window where it stood when it was last closed.
    void showWhereItWas();

    /// Takes another scheme into use, menus included, for this run.
    void showScheme(const std::string& name);

 protected:
    void closeEvent(QCloseEvent* event) override;
    void changeEvent(QEvent* event) override;

 private:
    using Handler = std::function<void()>;

    void addCommands();
    void addSchemes(QMenu& menu);
    QAction& addCommand(QMenu& menu, TextId name, const QList<QKeySequence>& keys,
                        const Handler& handler);
    /// Shows a scheme and remembers it.
    void chooseScheme(const std::string& name);
    void toggleFullScreen();
    void toggleNight();
    void openSheet(std::unique_ptr<Sheet> sheet);
    void choosePort();
    void storeState();

    FrameParts parts_;
    CKorvelView view_;
    QActionGroup schemes_;
    std::string shownScheme_;
    std::string dayScheme_;  // what C goes back to
    std::unique_ptr<Sheet> sheet_;
};

}  // namespace korvel
