#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "TempFolder.h"
#include "platform/FileIo.h"
#include "platform/PseudoTerminal.h"
#include "platform/RegistryProfile.h"
#include "receiver/ConnectionMonitor.h"
#include "receiver/FakePorts.h"
#include "receiver/GpsFixture.h"
#include "system/SpecialFiles.h"

namespace korvel { namespace {

namespace fs = std::filesystem;

constexpr const char* kRmc = "GPRMC,1,A,4730.0,N,01015.0,E,10.5,89.68,211200,,";
constexpr const char* kGga = "GPGGA,1,4730.0,N,01015.0,E,1,04,1.2,100.0,M,,,,";
constexpr const char* kGgaWithoutFix = "GPGGA,1,,,,,0,00,,,M,,,,";

class ConnectionMonitorTest : public GpsTest, protected SentenceListener {
 protected:
    void TearDown() override { rig_.reset(); }  // the port's thread, before what it calls

    void onLine(std::string_view line, std::int64_t arrivedMs) override {
        input_.onSentence(line, arrivedMs);
        ++*linesHeard_.lock();
    }

    void use(const SerialDeviceOpener& opener) {
        // One at a time: the old one's port must be closed before a new one listens.
        rig_.reset();
        rig_ = std::make_unique<Rig>(*this, opener);
    }
    ConnectionMonitor& monitor() { return rig_->monitor; }
    std::string status() { return monitor().connectionStatus(true); }
    std::string statusAfter(std::int64_t ms) {
        clock_.advanceMs(ms);
        return status();
    }
    void tickAfter(std::int64_t ms) {
        clock_.advanceMs(ms);
        monitor().gpsTick();
    }
    /// The receiver says so, and the next tick decodes it.
    void say(std::initializer_list<const char*> bodies) {
        for (const char* body : bodies) input_.onSentence(sentence(body));
        monitor().gpsTick();
    }
    /// Half-second ticks of what the program does; in each the receiver says so.
    void tickFor(std::int64_t ms, std::initializer_list<const char*> bodies = {}) {
        for (; ms > 0; ms -= 500) {
            clock_.advanceMs(500);
            say(bodies);
            if (bodies.size() != 0) input_.store().shared().lock()->sentenceFlags |= SentenceFlag::kBytesArrive;
            status();
        }
    }
    std::size_t opened() const { return ports_.openings().size(); }
    void setFlags(std::uint32_t flags, int fixQuality = 0) {
        const auto shared = input_.store().shared().lock();
        shared->sentenceFlags = flags;
        shared->fixQuality = fixQuality;
    }
    ProfileEntries storedEntries() const { return parseProfile(readWholeFile(profile_.path()).value_or("")); }

    struct Rig {
        Rig(ConnectionMonitorTest& test, const SerialDeviceOpener& opener)
            : port(opener, test.clock_), monitor({port, test, test.input_, test.profile_, test.clock_}) {}
        Rig(const Rig&) = delete;
        Rig& operator=(const Rig&) = delete;
        ~Rig() { port.stop(); }

        SerialSource port;
        ConnectionMonitor monitor;
    };

    TempFolder folder_;
    std::unique_ptr<RegistryProfile> registry_ = openRegistryProfile();
    ProfileFile profile_{folder_.path(), *registry_};
    FakePorts ports_;
    Guarded<int> linesHeard_;
    std::unique_ptr<Rig> rig_ = std::make_unique<Rig>(*this, ports_.opener());
};

TEST_F(ConnectionMonitorTest, StatusTellsHowFarTheConnectionHasCome) {
    const std::tuple<std::uint32_t, const char*> cases[] = {
        {0, "COM3 4800\nNo Gps Rcvr Activity"},
        {8 | 4, "COM3 4800\nNo Gps Rcvr Activity"},
        {1 | 4, "COM3 4800\nNo Gps Rcvr Activity"},
        {1 | 2, "COM3 4800\nWaiting for NMEA gprmc or gpvtg"},
        {1 | 2 | 4, "COM3 4800\nWaiting for NMEA gprmc or gpvtg"},
        {1 | 2 | 8, "COM3 4800\nWaiting for NMEA gpgga"},
        {1 | 2 | 4 | 8, "Locating Satellites"},
    };
    monitor().choosePort({.gps = PortSettings::of("COM3", "4800")});
    ASSERT_EQ(status(), "COM3 4800\nNo Gps Rcvr Activity");
    for (const auto& [flags, text] : cases) {
        setFlags(flags);
        EXPECT_EQ(status(), text) << flags;
    }
    EXPECT_FALSE(monitor().connected());
    setFlags(0, 1);
    EXPECT_EQ(status(), "");
    EXPECT_TRUE(monitor().connected());
    EXPECT_EQ(ports_.openings(), std::vector<std::string>{"COM3: 4800"}) << "opened once";
    EXPECT_FALSE(storedEntries().contains("Options.Port")) << "a chosen port is not stored";

    setFlags(0);
    ports_.send("\x80\x81\x82");
    EXPECT_TRUE(eventually([&] { return status() == "COM3 4800\nWaiting for NMEA Data"; }))
        << "bytes at a wrong speed are bytes";
    EXPECT_EQ(statusAfter(4999), "COM3 4800\nWaiting for NMEA Data");
    EXPECT_EQ(statusAfter(1), "COM3 4800\nNo Gps Rcvr Activity") << "no more of them came";
}

TEST_F(ConnectionMonitorTest, LabelNamesThePortInUse) {
    EXPECT_EQ(monitor().portLabel(true), "");
    EXPECT_EQ(monitor().connectionStatus(false), "No Gps Rcvr Activity");
    for (const auto& [setting, label] :
        {std::pair{"COM12:,115200,N,8,1", "COM12 115200"}, {"COM1:,9600", "COM1 9600"}, {"COM1", "COM1"}}) {
        monitor().choosePort({.gps = PortSettings::parse(setting), .gyro = PortSettings::of("COM7", "57600")});
        EXPECT_EQ(monitor().portLabel(true), label);
        EXPECT_EQ(monitor().portLabel(false), "COM7 57600");
    }
    monitor().choosePort(
        {.gps = PortSettings::of("COM1", "9600"), .viaGyro = true, .gyro = PortSettings::of("COM7", "57600")});
    EXPECT_EQ(status(), "COM7 57600\nNo Gps Rcvr Activity") << "the port that carries the data";
}

TEST_F(ConnectionMonitorTest, ScanTriesEveryPortAndDwellsLongerEachTime) {
    const char* const table[] = {"COM1: 9600", "COM1: 4800", "COM2: 9600", "COM2: 4800", "COM3: 9600", "COM3: 4800",
        "COM4: 9600", "COM4: 4800", "COM5: 9600", "COM5: 4800", "COM6: 38400", "COM6: 9600", "COM6: 4800", "COM7: 9600",
        "COM7: 4800", "COM8: 9600", "COM8: 4800", "COM9: 9600", "COM9: 4800"};
    std::vector<std::string> expected;
    for (const std::int64_t dwellMs : {3000, 3500, 4000}) {
        for (const std::string entry : table) {
            expected.push_back(entry);
            std::string label = entry;
            label.erase(label.find(':'), 1);
            ASSERT_EQ(status(), label + "\nNo Gps Rcvr Activity");
            statusAfter(dwellMs - 1);
            ASSERT_EQ(ports_.openings(), expected) << "given up too early";
            ASSERT_EQ(statusAfter(1), label + "\nNo Gps Rcvr Activity");
        }
    }
}

TEST_F(ConnectionMonitorTest, ScanPassesOverPortsThatDoNotOpen) {
    const std::pair<SystemError, const char*> failures[] = {{kErrorFileNotFound, "Invalid Port"},
        {kErrorAccessDenied, "Port already open!"}, {kErrorDeviceDoesNotExist, "Used or Non-existent Port!"},
        {31, "Port Open Failed=31"}};
    std::vector<std::string> expected;
    for (int port = 1; port <= 9; ++port) {
        const std::string name = "COM" + std::to_string(port);
        const auto& [error, text] = failures[port % 4];
        ports_.refuse(name + ":", error);
        EXPECT_EQ(status(), name + (port == 6 ? " 38400\n" : " 9600\n") + text);
        expected.push_back(name + ":");
    }
    EXPECT_EQ(monitor().portLabel(true), "") << "the next attempt begins anew";
    ports_.refuse("COM1:", kNoError);
    EXPECT_EQ(status(), "COM1 9600\nNo Gps Rcvr Activity");
    expected.emplace_back("COM1:");
    EXPECT_EQ(ports_.attempts(), expected) << "one attempt a port";
    EXPECT_EQ(ports_.openings(), std::vector<std::string>{"COM1: 9600"});
}

TEST_F(ConnectionMonitorTest, FoundPortIsWrittenAtOnceAndOnce) {
    for (int port = 1; port <= 5; ++port) {
        ports_.refuse("COM" + std::to_string(port) + ":", kErrorFileNotFound);
        status();
    }
    EXPECT_EQ(status(), "COM6 38400\nNo Gps Rcvr Activity");
    say({kRmc, kGga});
    EXPECT_EQ(status(), "");
    EXPECT_EQ(storedEntries().at("Options.Port"), "COM6:,38400,N,8,1");
    EXPECT_EQ(storedEntries().at("Options:PortScanned"), "1");
    fs::remove(profile_.path());
    EXPECT_EQ(status(), "");
    EXPECT_FALSE(fs::exists(profile_.path())) << "nothing new, nothing to write";
}

TEST_F(ConnectionMonitorTest, SilentReceiverIsDeadAfterFiveSeconds) {
    monitor().choosePort({.gps = PortSettings::of("COM3", "4800")});
    status();
    input_.satellitesForDisplay();
    say({"GPGSV,1,1,01,15,45,200,38", kRmc, kGga});
    input_.store().setTracing(true);
    tickAfter(4999);
    EXPECT_EQ(status(), "");
    EXPECT_EQ(fix().sentenceFlags, 2U | 4U | 8U);
    tickAfter(1);
    EXPECT_EQ(fix().fixQuality, 0);
    EXPECT_EQ(fix().satsInUse, 0);
    EXPECT_EQ(fix().sentenceFlags, 0U);
    EXPECT_EQ(fix().rmcPositionValid, 0);
    EXPECT_EQ(fix().satellites, SatelliteWords{});
    EXPECT_EQ(fix().groundSpeedKt, 10.5) << "what was told stays, its age tells";
    EXPECT_EQ(status(), "COM3 4800\nNo Gps Rcvr Activity");
    tickAfter(20000);
    status();
    status();
    EXPECT_EQ(trace(), (std::vector<std::string>{"bGpsDead=TRUE -1 5001 1 5000", "*** gps commands not received ***"}))
        << "declared once";

    say({kRmc, kGga});
    EXPECT_EQ(status(), "") << "and back with its next sentences";
    otherSource_.active = true;
    tickAfter(5000);
    EXPECT_EQ(fix().fixQuality, 1) << "the simulator flies on";
}

TEST_F(ConnectionMonitorTest, ReceiverThatLosesItsFixIsDeadAtOnce) {
    say({kRmc, kGga});
    say({kRmc, kGga});
    input_.store().setTracing(true);
    say({kRmc, kGgaWithoutFix});
    EXPECT_EQ(fix().sentenceFlags, 0U);
    EXPECT_EQ(fix().rmcPositionValid, 0);
    const std::vector<std::string> lines = trace();
    ASSERT_EQ(lines.size(), 4U);
    EXPECT_EQ(lines[2], "bGpsDead=TRUE");
    EXPECT_EQ(lines[3], "*** gps commands not received ***");
}

TEST_F(ConnectionMonitorTest, PortOfAVanishedDeviceIsOpenedAgain) {
    monitor().choosePort({.gps = PortSettings::of("COM3", "4800")});
    status();
    say({kRmc, kGga});
    EXPECT_EQ(status(), "");
    ports_.refuse("COM3:", kErrorFileNotFound);
    ports_.fail(kErrorDeviceFailure);
    EXPECT_TRUE(eventually([&] { return status() == "COM3 4800\nInvalid Port"; }));
    EXPECT_FALSE(input_.hasFix(false));
    EXPECT_FALSE(monitor().connected());
    ports_.refuse("COM3:", kNoError);
    ports_.fail(kNoError);
    EXPECT_EQ(status(), "COM3 4800\nNo Gps Rcvr Activity");
    ports_.send(sentence(kRmc) + "\r\n" + sentence(kGga) + "\r\n");
    EXPECT_TRUE(eventually([&] {
        monitor().gpsTick();
        return status().empty();
    }));
}

constexpr const char* kRmcWithoutFix = "GPRMC,1,V,,,,,,,211200,,";
constexpr const char* kHeading = "HCHDG,101.1,,,7.1,W";

TEST_F(ConnectionMonitorTest, AReceiverThatLivesIsNotLeftWithoutAFix) {
    tickFor(1000, {kRmc, kGga});
    tickFor(600000, {kRmcWithoutFix, kGgaWithoutFix});
    EXPECT_EQ(status(), "Locating Satellites");
    tickFor(7000);
    tickFor(1000, {kHeading});
    EXPECT_EQ(opened(), 1U) << "it may pause, and need not say all at once";
    tickFor(20000, {kRmc});
    EXPECT_EQ(opened(), 1U) << "a position is one, though it wants GGA";
    tickFor(1000, {kRmc, kGga});
    EXPECT_EQ(status(), "");
    // Silent: dead after 5 s, and then as long as any entry has.
    tickFor(7000);
    EXPECT_EQ(opened(), 1U);
    tickFor(1000);
    EXPECT_EQ(ports_.openings().back(), "COM1: 4800");
}

TEST_F(ConnectionMonitorTest, WhileTheSimulatorFliesNoReceiverIsLeft) {
    status();
    otherSource_.active = true;
    tickFor(60000, {kRmc, kGga});
    EXPECT_EQ(opened(), 1U);
}

TEST_F(ConnectionMonitorTest, WhatHasNoPositionIsPassedAndComesBackLast) {
    status();
    tickFor(2500);
    tickFor(2500, {kHeading});
    EXPECT_EQ(opened(), 1U) << "its time begins with its first sentence";
    const std::string passed[] = {"COM1: 9600", "COM3: 4800"};
    while (opened() < 60) {
        if (std::ranges::count(passed, ports_.openings().back()) > 0)
            tickFor(500, {kHeading});
        else
            tickFor(500);
    }
    const std::vector<std::string> order = ports_.openings();
    std::vector<std::size_t> where;
    for (std::size_t i = 0; i < order.size(); ++i)
        if (std::ranges::count(passed, order[i]) > 0) where.push_back(i);
    // Each once where it stands, and from then on both behind COM9, round by round.
    EXPECT_EQ(where, (std::vector<std::size_t>{0, 5, 19, 20, 38, 39, 57, 58}));
    EXPECT_EQ(order[1] + order[21], "COM1: 4800COM1: 4800");
}

TEST_F(ConnectionMonitorTest, PortThatBroughtSentencesIsTriedAgainFirst) {
    for (const bool spoke : {true, false}) {
        use(ports_.opener());
        input_.store().reset();
        status();
        if (spoke) tickFor(500, {kRmc, kGga});
        ports_.fail(kErrorDeviceFailure);
        clock_.advanceMs(1);
        const std::size_t before = opened();
        ASSERT_TRUE(eventually([&] {
            status();
            return opened() > before;
        }));
        EXPECT_EQ(ports_.openings().at(before), spoke ? "COM1: 9600" : "COM1: 4800");
        ports_.fail(kNoError);
    }
}

TEST_F(ConnectionMonitorTest, SilentPortThatWasStoredIsTriedAnewAndThenTheOthers) {
    monitor().choosePort({.gps = PortSettings::of("COM3", "4800"), .found = true});
    status();
    tickFor(1000, {kRmc, kGga});
    tickFor(9500);
    EXPECT_FALSE(monitor().scanning());
    tickFor(500);
    EXPECT_TRUE(monitor().scanning() && !monitor().searchesLost());
    tickFor(3500);
    EXPECT_EQ(ports_.openings().back(), "COM3: 4800");
    tickFor(500);
    EXPECT_EQ(ports_.openings().back(), "COM4: 9600");
    tickFor(500, {kRmc, kGga});
    EXPECT_EQ(storedEntries().at("Options.Port"), "COM4:,9600,N,8,1");
}

TEST_F(ConnectionMonitorTest, ChosenPortIsOpenedAgainWhenItsHandleIsStale) {
    monitor().choosePort({.gps = PortSettings::of("COM3", "4800")});
    status();
    tickFor(9500);
    EXPECT_EQ(opened(), 1U);
    tickFor(600000);
    EXPECT_GT(opened(), 30U);
    EXPECT_EQ(ports_.attempts(), std::vector<std::string>(opened(), "COM3:")) << "and no other";
}

TEST_F(ConnectionMonitorTest, ReceiverThatLeftTheChosenPortIsFoundUnderAnotherName) {
    monitor().choosePort(
        {.gps = PortSettings::of("COM3", "4800"), .gyroConnected = true, .gyro = PortSettings::of("COM4", "57600")});
    for (int port = 1; port <= 16; ++port) ports_.refuse("COM" + std::to_string(port) + ":", kErrorFileNotFound);
    status();
    for (int step = 0; step < 200; ++step) EXPECT_EQ(statusAfter(500), "COM3 4800\nInvalid Port");
    EXPECT_TRUE(monitor().searchesLost());
    const std::vector<std::string> tried = ports_.attempts();
    for (int port = 1; port <= 16; ++port)
        EXPECT_EQ(std::ranges::count(tried, "COM" + std::to_string(port) + ":") == 0, port == 4) << port;
    ports_.refuse("COM12:", kNoError);
    tickFor(60000);
    ASSERT_EQ(ports_.openings().front(), "COM12: 4800");
    while (monitor().sourceLabel() != "COM12 4800") tickFor(500);
    tickFor(1000, {kRmc, kGga});
    EXPECT_EQ(status(), "");
    EXPECT_FALSE(storedEntries().contains("Options.Port")) << "the pilot's choice stands";
    ports_.refuse("COM12:", kErrorFileNotFound);
    ports_.refuse("COM3:", kNoError);
    tickFor(60000);
    while (monitor().sourceLabel() != "COM3 4800") tickFor(500);
    tickFor(500, {kRmc, kGga});
    EXPECT_FALSE(monitor().scanning()) << "back where it belongs";
    ports_.refuse("COM3:", kErrorAccessDenied);
    ports_.fail(kErrorDeviceFailure);
    EXPECT_TRUE(eventually([&] { return status() == "COM3 4800\nPort already open!"; }));
    tickFor(3000);
    EXPECT_EQ(ports_.attempts().back(), "COM3:") << "it is there, but somebody else's";
}

TEST_F(ConnectionMonitorTest, AnotherSourceTakesThePlaceOfThePortAndNoneIsSearched) {
    struct Source final : SentenceSource {
        std::string start(SentenceListener& listener) override {
            if (!failure.empty()) return failure;
            running = true;
            listener.onLine(sentence(kRmc), 1);
            return {};
        }
        void stop() override { running = false; }
        bool isRunning() const override { return running; }
        bool isReceiving() override { return receiving; }
        std::string label() const override { return "Tape"; }
        std::string stateText() const override { return state; }
        bool running = false;
        bool receiving = true;
        std::string state, failure = "No such host";
    } source;
    status();
    EXPECT_TRUE(monitor().scanning());
    monitor().useSource(&source);
    EXPECT_FALSE(monitor().scanning());
    EXPECT_EQ(status(), "Tape\nNo such host");
    source.failure.clear();
    EXPECT_EQ(statusAfter(60000), "Tape\nWaiting for NMEA gprmc or gpvtg") << "its line has come, not been decoded";
    source.receiving = false;
    setFlags(0);
    EXPECT_EQ(status(), "Tape\nNo Gps Rcvr Activity");
    source.state = "The tape is torn";
    EXPECT_EQ(status(), "Tape\nThe tape is torn");
    source.receiving = true;
    EXPECT_EQ(status(), "Tape\nWaiting for NMEA Data");
    EXPECT_EQ(ports_.attempts(), std::vector<std::string>{"COM1:"}) << "only before";
    monitor().useSource(nullptr);
    EXPECT_FALSE(source.running);
    EXPECT_EQ(status(), "COM1 9600\nNo Gps Rcvr Activity");
}

TEST_F(ConnectionMonitorTest, FindsAReceiverOnARealLine) {
    const auto receiver = PseudoTerminal::create();
    ASSERT_NE(receiver, nullptr);
    std::string device = receiver->deviceName();
    device.pop_back();  // the colon
    // Links that lead nowhere stand before the one that does, whatever this machine has.
    for (int port = 1; port <= 9; ++port)
        if (!makeLink(port == 6 ? device : "/nonexistent", folder_ / ("com" + std::to_string(port))))
            GTEST_SKIP() << "no links to name ports by";
    use(systemSerialDeviceOpener(folder_.path()));
    for (int port = 1; port <= 5; ++port) EXPECT_EQ(status(), "COM" + std::to_string(port) + " 9600\nInvalid Port");
    EXPECT_EQ(status(), "COM6 38400\nNo Gps Rcvr Activity");
    for (const char* body : {kRmc, kGga})
        ASSERT_TRUE(receiver->write(sentence(body) + "\r\n", std::chrono::seconds(30)));
    ASSERT_TRUE(eventually([&] { return *linesHeard_.lock() == 2; }));
    monitor().gpsTick();
    EXPECT_EQ(status(), "");
    EXPECT_EQ(storedEntries().at("Options.Port"), "COM6:,38400,N,8,1");
}

}}  // namespace korvel
