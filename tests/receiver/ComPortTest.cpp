// A receiver on a real COM port of the system. What plays the receiver is told by files what to do: see
// com-port-under-wine, which runs this; without it there is nothing at the port.
#include <array>
#include <chrono>
#include <cstdlib>
#include <future>
#include <thread>

#include <gtest/gtest.h>

#include "TempFolder.h"
#include "platform/RegistryProfile.h"
#include "platform/SystemClock.h"
#include "receiver/ConnectionMonitor.h"
#include "receiver/PortFixtures.h"

namespace korvel { namespace {

constexpr const char* kSettings = "COM6:,38400,N,8,1";

class ComPortTest : public testing::Test {
 protected:
    void SetUp() override {
        const char* const folder = std::getenv("KORVEL_COM_PORT_TEST");
        if (folder == nullptr) GTEST_SKIP() << "nobody plays a receiver at COM6";
        orders_ = pathOf(folder);
        tell("speak");
    }

    /// Returns when it is done.
    void tell(const char* order) const {
        ASSERT_TRUE(writeFileAtomically(orders_ / order, ""));
        const auto end = std::chrono::steady_clock::now() + kDeadline;
        while (std::filesystem::exists(orders_ / order)) {
            ASSERT_LT(std::chrono::steady_clock::now(), end) << order;
            std::this_thread::sleep_for(std::chrono::milliseconds(5));
        }
    }

    std::filesystem::path orders_;
    SystemClock clock_;
};

class ComPortScanTest : public ComPortTest, protected SentenceListener {
 protected:
    void TearDown() override { source_.stop(); }

    void onLine(std::string_view line, std::int64_t arrivedMs) override { input_.onSentence(line, arrivedMs); }

    /// Half-second steps, made faster, of what the program does.
    template <class Condition>
    bool comesTrue(Condition holds) {
        const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(60);
        while (!holds()) {
            if (std::chrono::steady_clock::now() > end) return false;
            monitor_.gpsTick();
            status_ = monitor_.connectionStatus(true);
            std::this_thread::sleep_for(std::chrono::milliseconds(50));
        }
        return true;
    }

    TempFolder folder_;
    GpsInput input_{clock_, {.answer = [](std::string_view) {}, .attitude = [](std::string_view) {}}};
    std::unique_ptr<RegistryProfile> registry_ = openRegistryProfile();
    ProfileFile profile_{folder_.path(), *registry_};
    SerialSource source_{systemSerialDeviceOpener({}), clock_};
    ConnectionMonitor monitor_{{source_, *this, input_, profile_, clock_}};
    std::string status_;
};

TEST_F(ComPortTest, HasASpeedAndANameWithOrWithoutColon) {
    for (const char* name : {R"(\\.\COM6)", R"(\\.\COM6:)"}) {
        SystemError error = kNoError;
        const auto device = systemSerialDeviceOpener({})(name, error);
        ASSERT_NE(device, nullptr) << name << error;
        for (const std::uint32_t baud : {4800U, 38400U, 115200U}) {
            LineSettings actual;
            EXPECT_EQ(device->applyLineSettings({.baud = baud}), kNoError);
            EXPECT_EQ(device->readLineSettings(actual), kNoError);
            EXPECT_EQ(actual.baud, baud);
        }
    }
    SystemError error = kNoError;
    EXPECT_EQ(systemSerialDeviceOpener({})(R"(\\.\COM6::)", error), nullptr);
    EXPECT_EQ(error, kErrorFileNotFound);
}

TEST_F(ComPortScanTest, IsFoundByScanningLostAndFoundAgain) {
    ASSERT_TRUE(comesTrue([this] { return monitor_.connected(); })) << status_;
    EXPECT_EQ(status_, "");
    EXPECT_EQ(monitor_.sourceLabel(), "COM6 38400");
    EXPECT_EQ(profile_.getString("Options", "Port", ""), "COM6:,38400,N,8,1");
    const GpsFix fix = input_.store().copy();
    EXPECT_GT(fix.fixQuality, 0);
    EXPECT_GT(fix.satsInUse, 3);
    tell("unplug");
    ASSERT_TRUE(comesTrue([this] { return source_.hasFailed() || !monitor_.connected(); }))
        << "an end that is closed is no silence";
    ASSERT_TRUE(comesTrue([this] { return !monitor_.connected() && !status_.empty(); })) << status_;
    tell("plug");
    EXPECT_TRUE(comesTrue([this] { return monitor_.connected() && status_.empty(); })) << status_;
    EXPECT_EQ(monitor_.sourceLabel(), "COM6 38400");
}

TEST_F(ComPortTest, AListenerGetsEveryLineOfALog) {
    const std::string log = *readWholeFile(KORVEL_TEST_DATA "/nmea/navika-100-fix.log");
    SerialPort port(systemSerialDeviceOpener({}), clock_);
    ASSERT_EQ(port.open(kSettings), "");
    LineCollector lines;
    port.setListener(&lines);
    port.startThread();
    const RunningPort running(port);
    constexpr std::size_t kLines = 300;
    const auto heard = lines.waitFor(kLines);
    ASSERT_GE(heard.size(), kLines);
    std::string said;
    for (std::size_t i = 1; i < kLines; ++i) said += heard[i] + "\r\n";  // the first one may be a half
    EXPECT_NE((log + log + log).find(said), std::string::npos) << said;
    port.setListener(nullptr);
    const std::size_t count = lines.waitFor(0).size();
    std::this_thread::sleep_for(std::chrono::milliseconds(300));
    EXPECT_EQ(lines.waitFor(0).size(), count) << "nobody listens any more";
}

TEST_F(ComPortTest, ReadingInSilenceIsAbortedForGood) {
    tell("quiet");
    SystemError error = kNoError;
    const auto device = systemSerialDeviceOpener({})(R"(\\.\COM6)", error);
    ASSERT_NE(device, nullptr);
    // Wine ends no read that has no limit of its own.
    device->setTimeouts({.readIntervalMs = 20, .readConstantMs = 400});
    std::array<char, 512> some{};
    while (device->read(some).count > 0) {}  // what was on the way
    auto reading = std::async(std::launch::async, [&] {
        SystemError last = kNoError;
        while (last == kNoError) last = device->read(some).error;
        return last;
    });
    EXPECT_EQ(reading.wait_for(std::chrono::seconds(1)), std::future_status::timeout) << "silence is no failure";
    device->abort();
    ASSERT_EQ(reading.wait_for(kDeadline), std::future_status::ready);
    EXPECT_EQ(reading.get(), kErrorOperationAborted);
    tell("speak");
    EXPECT_EQ(device->read(some).error, kErrorOperationAborted);
    EXPECT_EQ(device->write("x").error, kErrorOperationAborted);
}

TEST_F(ComPortTest, ASilentPortClosesAtOnce) {
    tell("quiet");
    SerialPort port(systemSerialDeviceOpener({}), clock_);
    ASSERT_EQ(port.open(kSettings), "");
    port.startThread();
    std::this_thread::sleep_for(std::chrono::milliseconds(300));
    const auto begin = std::chrono::steady_clock::now();
    port.close();
    EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(2));
    EXPECT_FALSE(port.isOpen());
}

TEST_F(ComPortTest, BytesGoOutAsTheyAre) {
    tell("quiet");
    SerialPort port(systemSerialDeviceOpener({}), clock_);
    ASSERT_EQ(port.open(kSettings), "");
    port.startThread();
    const RunningPort running(port);
    const std::string bytes("$PSRF151,01*0F\r\n\0\x11\x13\xff", 20);
    port.write(bytes);
    const auto end = std::chrono::steady_clock::now() + kDeadline;
    std::string heard;
    while (!heard.ends_with(bytes) && std::chrono::steady_clock::now() < end) {
        heard = readWholeFile(orders_ / "heard").value_or("");
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
    }
    EXPECT_TRUE(heard.ends_with(bytes)) << heard;
}

}}  // namespace korvel
