// The program itself, started as a user starts it on a machine without a display.

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <utility>

#include <QImage>
#include <QProcess>
#include <QProcessEnvironment>
#include <QStringList>
#include <QSysInfo>
#include <gtest/gtest.h>

#include "TempFolder.h"
#include "config/ProfileFile.h"
#include "platform/FileIo.h"
#include "platform/RegistryProfile.h"
#include "receiver/FakePorts.h"
#include "receiver/GpsFixture.h"

namespace korvel { namespace {

bool isWindows() { return QSysInfo::kernelType() == QLatin1String("winnt"); }

class ProgramTest : public testing::Test {
 protected:
    struct Outcome {
        int exitCode;
        std::string errors;
    };

    Outcome run(const QStringList& arguments, const QString& scale = QStringLiteral("1")) {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        for (const char* name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"})
            environment.remove(QString::fromLatin1(name));
        environment.insert(QStringLiteral("QT_SCALE_FACTOR"), scale);
        QProcess program;
        program.setProcessEnvironment(environment);
        program.start(QStringLiteral(KORVEL_PROGRAM),
            QStringList{QStringLiteral("--profile-folder"), path("profile")} + arguments);
        EXPECT_TRUE(program.waitForFinished(60000));
        return {program.exitCode(), program.readAllStandardError().toStdString()};
    }

    /// Takes a picture while a receiver reports this position once a second.
    QImage picture(const QStringList& arguments, const QString& scale = QStringLiteral("1")) {
        std::ofstream log(folder_.path() / "flight.log");
        for (int second = 10; second < 50; ++second)
            for (const char* rest :
                {",A,4730.0,N,01015.0,E,90.0,90.0,211200,,", ",4730.0,N,01015.0,E,1,08,1,100,M,,,,"}) {
                std::ostringstream body;
                body << (rest[1] == 'A' ? "GPRMC,1000" : "GPGGA,1000") << second << rest;
                log << sentence(body.str()) << '\n';
            }
        log.close();
        const Outcome outcome = run(QStringList{QStringLiteral("--replay"), path("flight.log"),
                                        QStringLiteral("--snapshot"), path("picture.png"), QStringLiteral("--size"),
                                        QStringLiteral("640x480"), QStringLiteral("--after"), QStringLiteral("3")} +
                                        arguments,
            scale);
        EXPECT_EQ(outcome.exitCode, 0);
        EXPECT_EQ(outcome.errors, "");
        return QImage(path("picture.png"));
    }

    /// What the profile's file holds.
    std::string kept(const char* key) const {
        const auto entries = parseProfile(folder_.read("profile/korvel.ini"));
        const auto entry = entries.find(key);
        return entry == entries.end() ? "" : entry->second;
    }

    QString path(const char* name) const { return QString::fromStdString((folder_.path() / name).string()); }

    TempFolder folder_;
};

TEST_F(ProgramTest, SaysInOneLineWhyItDoesNotStart) {
    std::ofstream(folder_.path() / "empty.log") << "# no sentences\n";
    QList<QStringList> commands = {
        {"--snapshot", path("no such folder/a.png"), "--after", "0"},
        {"--snapshot", path("a.png"), "--size", "0x0"},
        {"--snapshot", path("a.png"), "--page", "Nowhere"},
        {"--snapshot", path("a.png"), "--scheme", "Purple"},
        {"--snapshot", path("a.png"), "--range", "30"},
        {"--snapshot", path("a.png"), "--replay", path("missing.log")},
        {"--snapshot", path("a.png"), "--replay", path("empty.log")},
        {"--snapshot", path("a.png"), "--profile-folder", path("empty.log")},
    };
    if (!isWindows()) commands.append(QStringList());  // no display
    for (const QStringList& arguments : std::as_const(commands)) {
        const Outcome outcome = run(arguments);
        const std::string command = arguments.join(' ').toStdString();
        EXPECT_EQ(outcome.exitCode, 1) << command;
        EXPECT_TRUE(outcome.errors.starts_with("korvel: ")) << command << outcome.errors;
        EXPECT_EQ(std::ranges::count(outcome.errors, '\n'), 1) << command << outcome.errors;
    }
    EXPECT_FALSE(std::filesystem::exists(folder_.path() / "a.png"));
}

TEST_F(ProgramTest, AReplayReachesTheMapAndLeavesTheSettingsAlone) {
    const QImage status = [&] {
        run({"--snapshot", path("status.png"), "--size", "640x480", "--after", "0", "--page", "HSI"});
        return QImage(path("status.png"));
    }();
    const QImage map = picture({});
    ASSERT_EQ(map.size(), QSize(640, 480));
    EXPECT_EQ(status.size(), map.size());
    // The information boxes stand on the map only; their day colour is cyan.
    const auto cyanBelowTheFields = [](const QImage& image) {
        int count = 0;
        for (int y = 190; y < 425; ++y)
            for (int x = 0; x < image.width(); ++x) count += image.pixelColor(x, y) == QColor(0, 255, 255) ? 1 : 0;
        return count;
    };
    EXPECT_LT(cyanBelowTheFields(status), 10);
    EXPECT_GT(cyanBelowTheFields(map), 500);

    const auto registry = openRegistryProfile();
    ProfileFile profile(folder_.path() / "profile", *registry);
    EXPECT_EQ(profile.getString(kOptionsSection, "Port", "?"), "");
}

TEST_F(ProgramTest, ASecondStartReachesTheFirstWindowWhichRemembersThroughAKill) {
    folder_.write("trip.fp", "f.AAA 47.5 10.0\r\nf.BBB 47.6 10.5\r\n");
    const std::string plan = (folder_ / "trip.fp").string();
    for (const bool again : {false, true}) {
        QProcess window;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        if (isWindows()) environment.remove(QStringLiteral("QT_QPA_PLATFORM"));  // there is a screen
        window.setProcessEnvironment(environment);
        window.start(QStringLiteral(KORVEL_PROGRAM), {QStringLiteral("--profile-folder"), path("profile")});
        ASSERT_TRUE(window.waitForStarted(30000));
        ASSERT_TRUE(eventually([&] { return kept("Options:WindowWidth") > "0"; }));
        ASSERT_EQ(kept("Options.OpenPlan"), again ? plan : "");
        QProcess second;
        second.setProcessEnvironment(environment);
        second.setWorkingDirectory(path(""));
        const auto startSecond = [&](const QStringList& arguments) {
            second.start(QStringLiteral(KORVEL_PROGRAM),
                QStringList{QStringLiteral("--profile-folder"), path("profile")} + arguments);
            EXPECT_TRUE(second.waitForFinished(30000));
            return second.exitCode();
        };
        EXPECT_EQ(startSecond({QStringLiteral("--scheme"), QStringLiteral("Purple")}), 1);
        EXPECT_TRUE(second.readAllStandardError().startsWith("korvel: --scheme: choose from"));
        EXPECT_EQ(startSecond({QStringLiteral("trip.fp")}), 0);
        EXPECT_TRUE(eventually([&] { return kept("Options.OpenPlan") == plan; }));
        EXPECT_EQ(window.state(), QProcess::Running);
        window.kill();
        ASSERT_TRUE(window.waitForFinished(30000));
        EXPECT_EQ(kept("Options.OpenPlan"), plan);
        // The next one tells by it that it has started.
        const auto registry = openRegistryProfile();
        ProfileFile(folder_ / "profile", *registry).setInt(kOptionsSection, "WindowWidth", 0);
    }
}

TEST_F(ProgramTest, AtNightNothingIsWhiteAtAnyScale) {
    const QImage night = picture({"--scheme", "<Night-Flight>", "--page", "North-Up"}, QStringLiteral("2"));
    ASSERT_EQ(night.size(), QSize(1280, 960));
    int brightest = 0;
    long bright = 0;
    for (int y = 0; y < night.height(); ++y)
        for (int x = 0; x < night.width(); ++x) {
            const int gray = qGray(night.pixel(x, y));
            brightest = std::max(brightest, gray);
            bright += gray > 150 ? 1 : 0;
        }
    EXPECT_GT(brightest, 200);  // the text
    EXPECT_LT(bright, night.width() * night.height() / 10);
    const auto registry = openRegistryProfile();
    ProfileFile profile(folder_.path() / "profile", *registry);
    EXPECT_EQ(profile.getString(kOptionsSection, "SchemeFile", "?"), "");
    EXPECT_EQ(profile.getInt(kOptionsSection, "Page", -1), 0);
    EXPECT_EQ(profile.getInt(kOptionsSection, "WindowWidth", -1), -1);
}

}}  // namespace korvel
