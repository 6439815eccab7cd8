#pragma once

#include <filesystem>
#include <memory>
#include <optional>
#include <string>

#include "cockpit/CKorvelDoc.h"
#include "config/DataFileSearch.h"
#include "config/ProfileFile.h"
#include "paint/ColorScheme.h"
#include "platform/EndRequest.h"
#include "platform/RegistryProfile.h"
#include "platform/SystemClock.h"
#include "qtpaint/DisplayFonts.h"
#include "qtpaint/LabelCache.h"
#include "window/CMainFrame.h"
#include "window/CommandLine.h"
#include "window/OneWindow.h"

namespace korvel {

/// The program: builds its parts in the order in which they need each other, and ends them in the
/// reverse order. Lives inside a running QApplication.
class CKorvelApp {
 public:
    /// Where the program keeps its files.
    static std::filesystem::path profileFolder(const CommandLine& line);

    /// `window` must outlive it.
    CKorvelApp(const CommandLine& line, OneWindow& window);

    /// Does what the command line asks for and shows the window. Returns an error text of one
    /// line, empty on success.
    [[nodiscard]] std::string start();

    /// Runs until the window is closed or the picture is taken; returns an error text.
    [[nodiscard]] std::string run();

 private:
    std::string startWindow();
    std::string startPicture();
    std::string startReplayAndView();
    std::string startReplay();
    std::string applyView();
    void openWhatIsAsked();
    void listenForOtherStarts();
    std::string startAgain(const OneWindow::Start& start);
    void startSimulator();
    void takeSnapshot();
    void listenForTheEnd();

    CommandLine line_;
    OneWindow& window_;
    EndRequest endRequest_;
    SystemClock clock_;
    std::unique_ptr<RegistryProfile> registry_;
    ProfileFile profile_;
    DisplayFonts fonts_;
    LabelCache labels_;
    DataFileSearch dataFiles_;
    ColorScheme scheme_;
    CKorvelDoc document_;
    CMainFrame frame_;
    std::string runError_;
};

}  // namespace korvel
