// A receiver on a real COM port of the system. What plays the receiver is told by files what to do: see
// com-port-under-wine, which runs this; without it there is nothing at the port.
#include <chrono>
#include <cstdlib>
#include <thread>

#include <gtest/gtest.h>

#include "TempFolder.h"
#include "platform/RegistryProfile.h"
#include "platform/SystemClock.h"
#include "receiver/ConnectionMonitor.h"

namespace korvel { namespace {

class ComPortTest : public testing::Test, protected SentenceListener {
 protected:
    void SetUp() override {
        const char* const folder = std::getenv("KORVEL_COM_PORT_TEST");
        if (folder == nullptr) GTEST_SKIP() << "nobody plays a receiver at COM6";
        orders_ = pathOf(folder);
    }
    void TearDown() override { source_.stop(); }

    void onLine(std::string_view line, std::int64_t arrivedMs) override { input_.onSentence(line, arrivedMs); }

    void tell(const char* order) const { ASSERT_TRUE(writeFileAtomically(orders_ / order, "")); }

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

    std::filesystem::path orders_;
    TempFolder folder_;
    SystemClock clock_;
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

TEST_F(ComPortTest, IsFoundByScanningLostAndFoundAgain) {
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

}}  // namespace korvel
