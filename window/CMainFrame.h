#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <string>

#include <QMainWindow>

#include "config/Text.h"
#include "window/CKorvelView.h"
#include "window/ScreenKeeper.h"
#include "window/commands/BookCommands.h"
#include "window/commands/ChartCommands.h"
#include "window/commands/CommandHost.h"
#include "window/commands/DatabaseCommands.h"
#include "window/commands/FileCommands.h"
#include "window/commands/GroundCommands.h"
#include "window/commands/HelpCommands.h"
#include "window/commands/NavigateCommands.h"
#include "window/commands/OptionCommands.h"
#include "window/commands/PlaceCommands.h"
#include "window/commands/SchemeCommands.h"
#include "window/commands/ViewCommands.h"
#include "window/sheets/Sheet.h"

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
class CMainFrame final : public QMainWindow, private CommandHost {
 public:
    explicit CMainFrame(const FrameParts& parts);

    CKorvelView& view() override { return view_; }
    Screen& screen() override { return view_.screen(); }
    /// Opens a plan or a track at once; the message for the pilot, empty on success.
    [[nodiscard]] std::string openFile(const std::filesystem::path& path);
    /// The same for a plan or a track; a failure is shown.
    void openFileOrTell(const std::filesystem::path& path) { file_.openFile(path); }

    /// Goes on with the flight of a program that was killed, when that is `wanted`, and remembers
    /// this one from now on; plans that no file holds are kept in `unsaved`. True when there was
    /// something to tell the pilot.
    bool resume(const std::filesystem::path& unsaved, bool wanted);

    /// Starts the simulator where the plan or the settings say.
    void simulate() { options_.simulate(true); }
    /// Loads the navigation databases; everything goes on meanwhile.
    void loadDatabases(const std::function<void()>& whenDone) {
        databases_.load([whenDone](bool /*changed*/) { whenDone(); });
    }

    /// Shows the window where it stood when it was last closed.
    void showWhereItWas();
    /// Tells the first time what is connected and loaded, and what to do next.
    void welcome() { help_.welcome(); }

    /// Keeps the window's place, page and range in the profile, as a close does.
    void storeState();
    /// The same at every tick from now on: a program may be killed.
    void keepState() { keepsState_ = true; }
    /// Before other windows, and not as an icon.
    void comeToFront();

    /// Takes another scheme into use, menus included, for this run.
    void showScheme(const std::string& name) { schemes_.show(name); }

 protected:
    void closeEvent(QCloseEvent* event) override;
    void changeEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

 private:
    void listenToScreen();
    void listenToCommands();
    void fitLetters();
    QAction& addCommand(QMenu& menu, Text name, const QList<QKeySequence>& keys,
                        const Handler& handler) override;
    void openSheet(std::unique_ptr<Sheet> sheet) override;
    void showError(const std::string& message) override;
    QWidget& window() override { return *this; }
    CKorvelDoc& document() override { return parts_.document; }
    ProfileFile& profile() override { return parts_.profile; }

    void addCommands();
    void openMenu();
    void fitMenuBar();
    void useScheme();
    void runTouch(TouchCommand command);
    void chooseField(std::size_t field);
    bool isAllSaved();

    FrameParts parts_;
    CKorvelView view_;
    FileCommands file_;
    NavigateCommands navigate_;
    PlaceCommands places_;
    BookCommands books_;
    DatabaseCommands databases_;
    ChartCommands charts_;
    GroundCommands ground_;
    OptionCommands options_;
    ViewCommands viewing_;
    SchemeCommands schemes_;
    HelpCommands help_;
    ScreenKeeper screenKeeper_;
    bool mayClose_ = false;     // the plan is safe
    bool toldUnsaved_ = false;  // what cannot be saved at the end
    bool keepsState_ = false;
    int menuGroup_ = 0;  // of the commands shown last
    std::unique_ptr<Sheet> sheet_;
};

}  // namespace korvel
