#include <filesystem>
#include <iostream>
#include <memory>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

#include <QApplication>
#include <QSettings>
#include <QSysInfo>

#include "config/Text.h"
#include "config/texts/CommandTexts.h"
#include "platform/Folders.h"
#include "platform/PathText.h"
#include "platform/ProgramArguments.h"
#include "platform/Terminal.h"
#include "window/CKorvelApp.h"
#include "window/CommandLine.h"
#include "window/Language.h"
#include "window/OneWindow.h"
#include "window/TouchStyle.h"

namespace {

int complain(std::string_view error) {
    std::cerr << "korvel: " << error << '\n';
    return 1;
}

/// Makes it when it is missing.
bool isFolder(const std::filesystem::path& path) {
    std::error_code error;
    std::filesystem::create_directories(path, error);
    return std::filesystem::is_directory(path, error);
}

/// True on systems that draw windows through a display server which may be missing.
bool lacksDisplay() {
    const QString kernel = QSysInfo::kernelType();
    return kernel != QLatin1String("winnt") && kernel != QLatin1String("darwin") &&
           qEnvironmentVariableIsEmpty("DISPLAY") &&
           qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY") &&
           qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM");
}

/// What the toolkit remembers of its file dialogs stands in the registry or the user's settings.
void keepToolkitSettings(const std::filesystem::path& folder) {
    QSettings::setDefaultFormat(QSettings::IniFormat);
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope,
                       QString::fromStdString(korvel::textOf(folder)));
}

/// The toolkit talks to itself on the error stream; what a user can act on is ours to say there,
/// but for why it cannot start at all.
void dropToolkitChatter(QtMsgType type, const QMessageLogContext& /*context*/,
                        const QString& message) {
    if (type == QtFatalMsg)
        std::cerr << "korvel: " << message.toStdString() << '\n';
}

}  // namespace

int main(int argc, char** argv) {
    korvel::joinTerminal();
    const std::vector<std::string> words = korvel::programArguments(argc, argv);
    const std::vector<std::string_view> arguments(words.begin() + 1, words.end());
    korvel::CommandLine line;
    if (const std::string error = korvel::parseCommandLine(arguments, line); !error.empty())
        return complain(error);
    if (!line.help.empty()) {
        std::cout << line.help;
        return 0;
    }
    if (line.version) {
        std::cout << korvel::text(korvel::kCommandTexts.programName) << ' ' << KORVEL_VERSION
                  << '\n';
        return 0;
    }
    qInstallMessageHandler(dropToolkitChatter);
    if (korvel::isPortable())
        keepToolkitSettings(korvel::executableFolder());
    if (!line.profileFolder.empty() && !isFolder(korvel::pathOf(line.profileFolder)))
        return complain(line.profileFolder + ": is no folder and cannot be made one");
    if (lacksDisplay()) {
        if (line.snapshotFile.empty())
            return complain("there is no display to open a window on (--snapshot needs none)");
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }

    QApplication::setHighDpiScaleFactorRoundingPolicy(
        Qt::HighDpiScaleFactorRoundingPolicy::PassThrough);
    const QApplication toolkit(argc, argv);
    QApplication::setOrganizationName(QStringLiteral("Tarnwick"));
    QApplication::setApplicationName(QStringLiteral("Korvel Pro"));
    QApplication::setApplicationVersion(QStringLiteral(KORVEL_VERSION));
    QApplication::setStyle(std::make_unique<korvel::TouchStyle>().release());
    korvel::chooseLanguage(line.language);
    korvel::OneWindow window(korvel::CKorvelApp::profileFolder(line));
    // A picture is taken beside whatever window there is.
    if (line.snapshotFile.empty())
        if (const auto answer = window.handOver(arguments))
            return answer->empty() ? 0 : complain(*answer);
    korvel::CKorvelApp program(line, window);
    if (const std::string error = program.start(); !error.empty())
        return complain(error);
    const std::string error = program.run();
    return error.empty() ? 0 : complain(error);
}
