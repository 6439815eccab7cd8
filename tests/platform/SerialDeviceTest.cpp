#include <array>
#include <chrono>
#include <future>

#include <gtest/gtest.h>

#include "TempFolder.h"
#include "platform/PseudoTerminal.h"
#include "platform/SerialDevice.h"
#include "system/SpecialFiles.h"

namespace korvel { namespace {

constexpr std::chrono::seconds kDeadline{30};

class SerialDeviceTest : public testing::Test {
 protected:
    void SetUp() override {
        far_ = PseudoTerminal::create();
        ASSERT_NE(far_, nullptr);
        device_ = open();
        ASSERT_NE(device_, nullptr);
    }

    std::unique_ptr<SerialDevice> open() {
        return systemSerialDeviceOpener({})(R"(\\.\)" + far_->deviceName(), error_);
    }

    std::string read(std::size_t wanted) {
        std::string bytes(wanted, '\0');
        const SerialDevice::Transfer got = device_->read(bytes);
        error_ = got.error;
        bytes.resize(got.count);
        return bytes;
    }

    std::unique_ptr<PseudoTerminal> far_;
    std::unique_ptr<SerialDevice> device_;
    SystemError error_ = kNoError;
};

TEST_F(SerialDeviceTest, EverySpeedAndSettingReachesTheLine) {
    if (far_->deviceName().starts_with("pipe")) GTEST_SKIP() << "a pipe has no speed; ComPortTest has a line";
    for (const std::uint32_t baud : {1200U, 2400U, 4800U, 9600U, 14400U, 19200U, 38400U, 57600U, 115200U}) {
        for (const bool xonXoff : {false, true}) {
            const LineSettings wanted{.baud = baud, .xonXoffOutput = xonXoff};
            ASSERT_EQ(device_->applyLineSettings(wanted), kNoError);
            device_.reset();
            device_ = open();  // nothing remembered: the line itself answers
            ASSERT_NE(device_, nullptr);
            LineSettings actual;
            EXPECT_EQ(device_->readLineSettings(actual), kNoError);
            EXPECT_EQ(actual, wanted) << baud;
        }
    }
    EXPECT_EQ(device_->applyLineSettings({.baud = 4800, .dropNuls = true}), kErrorInvalidParameter);
    EXPECT_EQ(device_->applyLineSettings({.baud = 0}), kErrorInvalidParameter);
}

TEST_F(SerialDeviceTest, ReadsEndByTheirTimeouts) {
    device_->setTimeouts({.readIntervalMs = 20, .readMultiplierMs = 1, .readConstantMs = 5});
    EXPECT_EQ(read(1), "");
    EXPECT_EQ(error_, kNoError);
    // Without a limit on the whole, only the gap behind the third byte ends it.
    device_->setTimeouts({.readIntervalMs = 20});
    ASSERT_TRUE(far_->write("abc", kDeadline));
    EXPECT_EQ(read(8), "abc");
    ASSERT_TRUE(far_->write("defg", kDeadline));
    EXPECT_EQ(read(2), "de");
    EXPECT_EQ(read(2), "fg");
}

TEST_F(SerialDeviceTest, OthersAreKeptOutAndAColonIsPartOfAName) {
    EXPECT_EQ(open(), nullptr);
    EXPECT_EQ(error_, kErrorAccessDenied);
    device_.reset();
    const TempFolder ports;
    const std::string name = far_->deviceName();
    if (!makeLink(name.substr(0, name.find(':')), ports / "com4")) GTEST_SKIP() << "no links to name ports by";
    const auto opener = systemSerialDeviceOpener(ports.path());
    EXPECT_NE(opener(R"(\\.\COM4:)", error_), nullptr);
    EXPECT_NE(opener(R"(\\.\COM4)", error_), nullptr);
    EXPECT_EQ(opener(R"(\\.\COM4::)", error_), nullptr);
    EXPECT_EQ(error_, kErrorFileNotFound);
}

TEST_F(SerialDeviceTest, AnUnpluggedDeviceFails) {
    far_->unplug();
    EXPECT_EQ(read(4), "");
    EXPECT_EQ(error_, kErrorDeviceFailure);
    EXPECT_EQ(device_->write("x").error, kErrorDeviceFailure);
    EXPECT_FALSE(far_->write("x", kDeadline));
    EXPECT_EQ(open(), nullptr);
}

TEST_F(SerialDeviceTest, AbortEndsABlockedReadAndWriteAndEveryLaterOne) {
    device_->setTimeouts({});  // for ever
    auto reading = std::async(std::launch::async, [this] { return read(1); });
    device_->abort();
    ASSERT_EQ(reading.wait_for(kDeadline), std::future_status::ready);
    EXPECT_EQ(error_, kErrorOperationAborted);
    ASSERT_TRUE(far_->write("x", kDeadline));
    read(1);
    EXPECT_EQ(error_, kErrorOperationAborted);
    const std::string flood(1U << 20U, 'x');
    EXPECT_EQ(device_->write(flood).error, kErrorOperationAborted);
}

TEST_F(SerialDeviceTest, AWriteEndsByItsTimeout) {
    device_->setTimeouts({.writeConstantMs = 10});
    const std::string flood(1U << 20U, 'x');
    const SerialDevice::Transfer sent = device_->write(flood);
    EXPECT_EQ(sent.error, kNoError);
    EXPECT_GT(sent.count, 0U);
    EXPECT_LT(sent.count, flood.size());
}

}}  // namespace korvel
