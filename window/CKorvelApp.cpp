#include "window/CKorvelApp.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <string_view>
#include <vector>

#include <QApplication>
#include <QGuiApplication>
#include <QPixmap>
#include <QSocketNotifier>
#include <QTimer>

#include "config/Text.h"
#include "config/texts/FileTexts.h"
#include "config/texts/StatusTexts.h"
#include "platform/FileIo.h"
#include "platform/Folders.h"
#include "platform/PathText.h"
#include "platform/SerialDevice.h"
#include "receiver/DemoFlight.h"
#include "receiver/ReplayScript.h"
#include "receiver/ReplaySource.h"
#include "screen/PageCycle.h"

namespace korvel {
namespace {

constexpr std::string_view kFontKey = "SysFont";
constexpr std::string_view kUsualFont = "Arial Narrow";
constexpr std::string_view kUnsavedPlan = "unsaved-plan.fp";
constexpr int kLookForTheEndMs = 500;

/// A file name that was relative to a folder; empty stays empty.
void makeAbsolute(std::string& file, const std::filesystem::path& folder) {
    if (!file.empty())
        file = textOf(folder / pathOf(file));
}

template <class Items, class Name>
std::string listOf(const Items& items, Name name) {
    std::string list;
    for (const auto& item : items)
        list.append(list.empty() ? "" : ", ").append(name(item));
    return list;
}

}  // namespace

std::filesystem::path CKorvelApp::profileFolder(const CommandLine& line) {
    return line.profileFolder.empty() ? programFolder() : pathOf(line.profileFolder);
}

CKorvelApp::CKorvelApp(const CommandLine& line, OneWindow& window)
    : line_(line),
      window_(window),
      registry_(openRegistryProfile()),
      profile_(profileFolder(line), *registry_, "korvel.ini", systemFileSystem(),
               window.isOurs() ? ProfileFile::Access::Own : ProfileFile::Access::Look),
      fonts_(QString::fromStdString(profile_.getString(kOptionsSection, kFontKey, kUsualFont))),
      labels_(fonts_),
      dataFiles_({documentsFolder(), programFolder(), executableFolder() / "data"}),
      scheme_(profile_, dataFiles_),
      document_({profile_, clock_, systemSerialDeviceOpener(profileFolder(line) / "ports"),
                 window.isOurs() ? profileFolder(line) : std::filesystem::path(), pluginFolder()}),
      frame_({document_, profile_, scheme_, dataFiles_, labels_}) {
    for (const std::filesystem::path& file : dataFiles_.pathsOf(Geoid::kFileName))
        if (const auto bytes = readWholeFile(file))
            document_.setGeoid(Geoid::fromBytes(*bytes));
}

std::string CKorvelApp::start() {
    // A window on the screen may wait for its places, a picture may not.
    if (line_.snapshotFile.empty())
        document_.ground().startOpening(dataFolders());
    else
        document_.ground().open(dataFolders());
    return line_.snapshotFile.empty() ? startWindow() : startPicture();
}

std::string CKorvelApp::startWindow() {
    if (window_.isOurs())
        for (const auto& folder : {profileFolder(line_), documentsFolder()})
            clearTemporaries(folder);
    frame_.showWhereItWas();
    frame_.keepState();
    listenForOtherStarts();
    if (std::string error = startReplayAndView(); !error.empty())
        return error;
    if (const auto& copy = profile_.damagedCopy(); !copy.empty())
        frame_.screen().say(formatText(kFileTexts.profileDamaged, {textOf(copy.filename())}));
    if (!window_.isOurs())
        frame_.screen().say(std::string(text(kFileTexts.otherWindow)));
    frame_.loadDatabases([this] { openWhatIsAsked(); });
    // Half a second is long for a pilot who waits for the map.
    frame_.screen().tick();
    return {};
}

/// What needs the databases: plans, and where the simulator begins.
void CKorvelApp::openWhatIsAsked() {
    const bool asked =
        line_.simulate || line_.demo || !line_.replayFile.empty() || !line_.planFile.empty();
    const bool ours = window_.isOurs();
    const bool recovered =
        frame_.resume(ours ? profileFolder(line_) / kUnsavedPlan : std::filesystem::path(),
                      ours && line_.planFile.empty());
    if (!line_.planFile.empty())
        frame_.openFileOrTell(pathOf(line_.planFile));
    startSimulator();
    if (!asked && !recovered)
        frame_.welcome();
}

void CKorvelApp::listenForOtherStarts() {
    if (window_.isOurs())
        window_.listen([this](const OneWindow::Start& start) { return startAgain(start); });
}

/// Does in this window what another start of the program was asked for, and brings it to the front.
std::string CKorvelApp::startAgain(const OneWindow::Start& start) {
    const std::vector<std::string_view> arguments(start.arguments.begin(), start.arguments.end());
    CommandLine asked;
    if (std::string error = parseCommandLine(arguments, asked); !error.empty())
        return error;
    makeAbsolute(asked.planFile, start.folder);
    makeAbsolute(asked.replayFile, start.folder);
    asked.profileFolder = line_.profileFolder;
    // What this start was asked for itself may still be waiting for the databases.
    const bool waits = document_.charts().loading().has_value();
    if (waits && asked.planFile.empty())
        asked.planFile = line_.planFile;
    asked.simulate = asked.simulate || (waits && line_.simulate);
    line_ = asked;
    frame_.comeToFront();
    if (std::string error = startReplayAndView(); !error.empty() || waits)
        return error;
    if (!line_.planFile.empty())
        frame_.openFileOrTell(pathOf(line_.planFile));
    startSimulator();
    return {};
}

std::string CKorvelApp::startPicture() {
    document_.loadDatabases(dataFolders());
    if (!line_.planFile.empty())
        if (const std::string error = frame_.openFile(line_.planFile); !error.empty())
            return line_.planFile + ": " + error;
    if (std::string error = startReplayAndView(); !error.empty())
        return error;
    startSimulator();
    frame_.screen().tick();
    frame_.view().onFirstPaint = [this] {
        constexpr double kMsPerSecond = 1000;
        QTimer::singleShot(static_cast<int>(line_.afterSec * kMsPerSecond), &frame_,
                           [this] { takeSnapshot(); });
    };
    frame_.resize(line_.width, line_.height);
    frame_.show();
    return {};
}

void CKorvelApp::startSimulator() {
    if (!line_.simulate)
        return;
    frame_.simulate();
    document_.flight().setTimeFactor(line_.timeFactor);
}

std::string CKorvelApp::startReplayAndView() {
    std::string error = startReplay();
    return error.empty() ? applyView() : error;
}

std::string CKorvelApp::startReplay() {
    if (!line_.demo && line_.replayFile.empty())
        return {};
    const auto log = line_.demo ? makeDemoFlightLog() : readWholeFile(pathOf(line_.replayFile));
    if (!log)
        return line_.replayFile + ": cannot be read";
    auto script = makeReplayScript(*log);
    if (script.empty())
        return line_.replayFile + ": holds no sentences of a receiver";
    std::string label = line_.demo ? std::string(text(kStatusTexts.demonstration))
                                   : textOf(pathOf(line_.replayFile).filename());
    document_.useSource(std::make_unique<ReplaySource>(
        std::move(script),
        ReplaySource::Options{.label = std::move(label),
                              .kind = line_.demo ? SourceKind::Demonstration : SourceKind::Replay,
                              .speed = line_.speed,
                              .loop = line_.demo},
        clock_));
    return {};
}

std::string CKorvelApp::applyView() {
    if (!line_.scheme.empty()) {
        const auto names = listSchemes(dataFiles_);
        const std::string wanted = fullSchemeName(line_.scheme);
        if (std::ranges::find(names, wanted) == names.end())
            return "--scheme: choose from " +
                   listOf(names, [](const std::string& name) { return name; });
        frame_.showScheme(wanted);
    }
    if (!line_.page.empty() || line_.rangeNm)
        frame_.screen().holdView();
    if (!line_.page.empty()) {
        const auto page = pageOfName(line_.page);
        if (!page)
            return "--page: choose from " + listOf(availablePages(), pageName);
        frame_.screen().showPage(*page);
    }
    if (line_.rangeNm && !frame_.screen().setRange(*line_.rangeNm))
        return "--range: choose from " +
               listOf(kRangeStepsNm, [](int rangeNm) { return std::to_string(rangeNm); });
    return {};
}

void CKorvelApp::takeSnapshot() {
    if (!frame_.grab().save(QString::fromStdString(line_.snapshotFile)))
        runError_ = line_.snapshotFile + ": cannot be written";
    // Not quit(), which closes the window, and a window that is closed remembers its place.
    QApplication::exit();
}

/// However the system ends the program, it remembers what it would at a close of its window.
void CKorvelApp::listenForTheEnd() {
    const auto endIfAsked = [this] {
        if (!endRequest_.isAsked())
            return;
        // A picture's window has no place worth remembering.
        if (line_.snapshotFile.empty())
            frame_.storeState();
        QApplication::exit();
    };
    // The frame owns both.
    if (const int descriptor = endRequest_.descriptor(); descriptor >= 0) {
        auto* notifier = new QSocketNotifier(descriptor, QSocketNotifier::Read, &frame_);
        QObject::connect(notifier, &QSocketNotifier::activated, &frame_, [=] {
            notifier->setEnabled(false);
            endIfAsked();
        });
    } else {
        auto* timer = new QTimer(&frame_);
        QObject::connect(timer, &QTimer::timeout, &frame_, endIfAsked);
        timer->start(kLookForTheEndMs);
    }
    const auto* application = qobject_cast<QGuiApplication*>(QCoreApplication::instance());
    QObject::connect(application, &QGuiApplication::commitDataRequest, &frame_, [this] {
        frame_.storeState();
        profile_.save();
    });
    // Windows ends a program at a log-off without letting it come back from its loop.
    QObject::connect(application, &QCoreApplication::aboutToQuit, &frame_,
                     [this] { document_.endSession(); });
}

std::string CKorvelApp::run() {
    listenForTheEnd();
    QApplication::exec();
    if (const auto troubles = document_.troubles(); runError_.empty() && !troubles.empty())
        runError_ = troubles.front();
    return runError_;
}

}  // namespace korvel
