// The port on real bytes: a pseudo-terminal stands for the receiver.
#include <array>
#include <chrono>
#include <thread>

#include <gtest/gtest.h>

#include "platform/PseudoTerminal.h"
#include "platform/VirtualClock.h"
#include "receiver/PortFixtures.h"
#include "receiver/SerialPort.h"
#include "system/DescriptorLimit.h"

namespace korvel { namespace {

class SerialPortTerminalTest : public testing::Test {
 protected:
    void SetUp() override {
        receiver_ = PseudoTerminal::create();
        ASSERT_NE(receiver_, nullptr);
    }

    std::string settings(const std::string& baud = "115200") const {
        return receiver_->deviceName() + "," + baud + ",N,8,1";
    }

    RunningPort run(LineListener& listener) {
        EXPECT_EQ(port_.open(settings()), "");
        port_.setListener(&listener);
        port_.startThread();
        return RunningPort(port_);
    }

    std::unique_ptr<PseudoTerminal> receiver_;
    VirtualClock clock_;
    SerialPort port_{systemSerialDeviceOpener({}), clock_};
};

TEST_F(SerialPortTerminalTest, NothingIsLostAtFullSpeed) {
    // Ten seconds of a receiver that fills the line at 115200 baud, faster than it would come.
    std::vector<std::string> expected;
    for (int i = 0; i < 1600; ++i) expected.push_back("$GPGSV,3,1,11," + std::to_string(i) + std::string(50, ','));
    LineCollector lines;
    const RunningPort running = run(lines);
    std::thread sender([&] {
        for (const std::string& sentence : expected) EXPECT_TRUE(receiver_->write(sentence + "\r\n", kDeadline));
    });
    EXPECT_EQ(lines.waitFor(expected.size()), expected);
    sender.join();
}

TEST_F(SerialPortTerminalTest, WithoutDescriptorsItTellsAndGoesOnLater) {
    if (!DescriptorLimit::isPossible()) GTEST_SKIP() << "this system has no such limit";
    const std::string wanted = settings();
    // What is opened first makes the sanitizers look around, which takes descriptors of their own.
    ASSERT_EQ(port_.open(wanted), "");
    port_.close();
    std::string error = "none yet";
    for (int left = 0; !error.empty(); ++left) {
        ASSERT_LT(left, 10) << "more than a port needs";
        const DescriptorLimit limit(left);
        error = port_.open(wanted);
        EXPECT_EQ(error, port_.isOpen() ? "" : "Port Open Failed=4") << left;
    }
}

TEST_F(SerialPortTerminalTest, BytesGoOutAsTheyAre) {
    LineCollector lines;
    const RunningPort running = run(lines);
    const std::string bytes("$PSRF151,01*0F\r\n\0\x11\x13\xff", 20);
    port_.write(bytes);
    std::string arrived;
    std::array<char, 64> some{};
    std::size_t count = 1;
    while (arrived.size() < bytes.size() && count > 0) {
        count = receiver_->read(some, kDeadline);
        arrived.append(some.data(), count);
    }
    EXPECT_EQ(arrived, bytes);
}

TEST_F(SerialPortTerminalTest, AnUnpluggedReceiverIsNoticedAndThePortClosed) {
    LineCollector lines;
    const RunningPort running = run(lines);
    ASSERT_TRUE(receiver_->write("$A\r\n", kDeadline));
    EXPECT_EQ(lines.waitFor(1).size(), 1U);
    receiver_->unplug();
    const auto deadline = std::chrono::steady_clock::now() + kDeadline;
    while (!port_.hasReadFailed() && std::chrono::steady_clock::now() < deadline) std::this_thread::yield();
    EXPECT_TRUE(port_.hasReadFailed());
    EXPECT_TRUE(port_.isOpen());
    port_.close();
    EXPECT_FALSE(port_.isOpen());
}

}}  // namespace korvel
