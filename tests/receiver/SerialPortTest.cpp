#include <array>
#include <atomic>
#include <deque>
#include <thread>

#include <gtest/gtest.h>

#include "platform/Event.h"
#include "platform/Threading.h"
#include "platform/VirtualClock.h"
#include "receiver/PortFixtures.h"
#include "receiver/SerialPort.h"

namespace korvel { namespace {

/// What a fake device is told, and what it answers; outlives the device, which the port owns.
struct Bench {
    std::string openedPath;
    bool closed = false;
    SystemError openError = kNoError;
    SystemError settingsError = kNoError;
    SystemError applyError = kNoError;
    LineSettings line;
    SerialTimeouts timeouts;

    /// Answers to reads in order: an error, or bytes. An empty script means silence.
    struct Answer {
        SystemError error = kNoError;
        std::string bytes;
    };
    Watched<std::deque<Answer>> script;
    Watched<int> errorsCleared;
    Watched<std::string> sent;
    bool takesOutput = true;
    bool waitsForBytes = false;
    Event aborted{Event::Reset::Manual};
};

class FakeDevice final : public SerialDevice {
 public:
    explicit FakeDevice(Bench& bench) : bench_(bench) { bench_.closed = false; }
    FakeDevice(const FakeDevice&) = delete;
    FakeDevice& operator=(const FakeDevice&) = delete;
    ~FakeDevice() override { bench_.closed = true; }

    SystemError readLineSettings(LineSettings& settings) override {
        settings = bench_.line;
        return bench_.settingsError;
    }
    SystemError applyLineSettings(const LineSettings& settings) override {
        bench_.line = settings;
        return bench_.applyError;
    }
    SystemError setTimeouts(const SerialTimeouts& timeouts) override {
        bench_.timeouts = timeouts;
        return kNoError;
    }

    Transfer read(std::span<char> into) override {
        Transfer transfer;
        bench_.script.change([&](auto& script) {
            if (script.empty()) return;
            Bench::Answer& answer = script.front();
            transfer.error = answer.error;
            transfer.count = answer.bytes.copy(into.data(), into.size());
            answer.bytes.erase(0, transfer.count);
            if (answer.bytes.empty()) script.pop_front();
        });
        return transfer;
    }

    bool waitsForBytes() const override { return bench_.waitsForBytes; }

    Transfer write(std::string_view bytes) override {
        if (!bench_.takesOutput) {
            bench_.aborted.wait(kDeadline);
            return {.error = kErrorOperationAborted, .count = 0};
        }
        bench_.sent.change([&](std::string& sent) { sent += bytes; });
        return {.error = kNoError, .count = bytes.size()};
    }

    void clearError() override {
        bench_.errorsCleared.change([](int& count) { ++count; });
    }
    void abort() override { bench_.aborted.set(); }

 private:
    Bench& bench_;
};

/// Has a few events and threads to give, then no more.
class ScarceThreading final : public Threading {
 public:
    explicit ScarceThreading(int left) : left_(left) {}
    Event makeEvent(Event::Reset reset) override { return left_-- > 0 ? Event(reset) : Event(); }
    std::thread startThread(std::function<void()> run) override {
        return left_-- > 0 ? std::thread(std::move(run)) : std::thread();
    }

 private:
    int left_;
};

class SerialPortTest : public testing::Test {
 protected:
    /// As if the device sent these, one after the other.
    void answer(const std::vector<Bench::Answer>& answers) {
        bench_.script.change([&](auto& script) { script.insert(script.end(), answers.begin(), answers.end()); });
    }

    bool waitUntilScriptIsUsedUp() {
        return bench_.script.waitUntil([](const auto& script) { return script.empty(); });
    }

    RunningPort run(LineListener* listener) {
        EXPECT_EQ(port_.open("COM3:,4800,N,8,1"), "");
        port_.setListener(listener);
        port_.startThread();
        return RunningPort(port_);
    }

    Bench bench_;
    VirtualClock clock_;
    SerialPort port_{[this](std::string_view path, SystemError& error) {
                         bench_.openedPath = path;
                         error = bench_.openError;
                         return error == kNoError ? std::make_unique<FakeDevice>(bench_) : nullptr;
                     },
        clock_};
};

TEST_F(SerialPortTest, OpensAt4800AsTheTimeoutsWant) {
    bench_.line = {.baud = 300,
        .dataBits = 7,
        .parityBit = true,
        .parityCheck = true,
        .ctsOutputFlow = true,
        .xonXoffOutput = true,
        .xonXoffInput = true,
        .replaceErrors = true,
        .dtrOn = false,
        .rtsOn = false};
    EXPECT_EQ(port_.open("COM3:,4800,E,7,2"), "");
    EXPECT_EQ(bench_.openedPath, port_.devicePath());
    EXPECT_EQ(std::tuple(port_.devicePath(), port_.portNumber(), port_.settings()),
        std::tuple(R"(\\.\COM3:)", 3, "COM3:,4800,E,7,2"));
    EXPECT_EQ(bench_.line, (LineSettings{.baud = 4800, .xonXoffOutput = true, .replaceErrors = true}));
    EXPECT_EQ(bench_.timeouts, (SerialTimeouts{4, 3, 5, 0, 0}));

    EXPECT_EQ(port_.open("COM4:,4800"), "Port already open!");
    EXPECT_EQ(port_.portNumber(), 0);
    EXPECT_EQ(port_.settings(), "");
    EXPECT_TRUE(port_.isOpen());
}

TEST_F(SerialPortTest, TheSpeedIsWhatTheTextBeginsWith) {
    const std::vector<std::pair<std::string, std::uint32_t>> cases = {{"9600", 9600}, {"4800,N", 4800}, {"2400", 2400},
        {"14400", 14400}, {"19200", 19200}, {"38400", 38400}, {"57600", 57600}, {"115200", 115200}, {"1200", 1200},
        {"1152000", 115200}, {"12000", 1200}};
    for (const auto& [text, baud] : cases) {
        EXPECT_EQ(port_.open("COM1:," + text), "") << text;
        EXPECT_EQ(bench_.line.baud, baud) << text;
        port_.close();
    }
    EXPECT_EQ(bench_.timeouts, (SerialTimeouts{10, 9, 5, 0, 0}));  // 1200 baud
}

TEST_F(SerialPortTest, FailuresToOpenHaveTheirTextsAndLeaveNothingOpen) {
    const struct {
        const char* settings;
        SystemError open, settingsRead, apply;
        const char* text;
    } cases[] = {
        {"COM3:,4800", 2, 0, 0, "Invalid Port"}, {"COM3:,4800", 5, 0, 0, "Port already open!"},
        {"COM3:,4800", 55, 0, 0, "Used or Non-existent Port!"}, {"COM3:,4800", 31, 0, 0, "Port Open Failed=31"},
        {"COM3:,300", 0, 31, 0, "Port Being Used"}, {"COM3:,300", 0, 0, 0, "Unsupported baud"},
        {"COM3:, 4800", 0, 0, 0, "Unsupported baud"}, {"COM3:", 0, 0, 0, "Unsupported baud"},
        {"COM3:,14400", 0, 0, 87, "Unsupported baud"}, {"COM3:,4800", 0, 0, 31, "Port Open Failed=31"},
        {"/dev/ttyACM123:,4800", 0, 0, 0, "Bad setting!"},  // 15 characters
    };
    for (const auto& c : cases) {
        bench_.openError = c.open;
        bench_.settingsError = c.settingsRead;
        bench_.applyError = c.apply;
        bench_.closed = true;
        EXPECT_EQ(port_.open(c.settings), c.text);
        EXPECT_TRUE(bench_.closed && !port_.isOpen());
        EXPECT_EQ(std::tuple(port_.devicePath(), port_.settings()), std::tuple("", ""));
    }
}

TEST_F(SerialPortTest, WithoutEventsOrThreadsItTellsAndGoesOnLater) {
    constexpr int kEvents = 3;
    answer({{kNoError, "$A\r\n"}});
    for (int left = 0; left <= kEvents + 1; ++left) {
        ScarceThreading threading(left);
        SerialPort port(
            [this](std::string_view, SystemError&) { return std::make_unique<FakeDevice>(bench_); }, clock_, threading);
        LineCollector lines;
        EXPECT_EQ(port.open("COM3:,4800"), left < kEvents ? "Port Open Failed=4" : "") << left;
        EXPECT_EQ(port.isOpen(), left >= kEvents);
        port.setListener(&lines);
        port.startThread();
        EXPECT_EQ(port.hasReadFailed(), left == kEvents) << "no thread: as if the device were dead";
        if (left > kEvents) { EXPECT_EQ(lines.waitFor(1).size(), 1U); }
        port.write("x");
        port.close();
    }
}

TEST_F(SerialPortTest, SixFailuresInARowEndTheReading) {
    LineCollector lines;
    answer({{87, ""}, {87, ""}, {87, ""}, {87, ""}, {87, ""}, {0, "$A\r\n"}, {87, ""}});
    const RunningPort running = run(&lines);
    EXPECT_EQ(lines.waitFor(1).size(), 1U);
    EXPECT_TRUE(waitUntilScriptIsUsedUp());
    EXPECT_FALSE(port_.hasReadFailed());

    answer({{0, "$B\r\n"}, {87, ""}, {87, ""}, {87, ""}, {87, ""}, {87, ""}, {87, ""}, {0, "$C\r\n"}});
    bench_.script.waitUntil([](const auto& script) { return script.size() == 1; });
    port_.write("still served");
    EXPECT_TRUE(bench_.sent.waitUntil([](const auto& sent) { return sent == "still served"; }));
    EXPECT_TRUE(port_.hasReadFailed());
    port_.close();
    EXPECT_FALSE(port_.hasReadFailed());
    EXPECT_EQ(lines.waitFor(2), (std::vector<std::string>{"$A", "$B"}));
}

TEST_F(SerialPortTest, AnAbortedReadIsClearedAndRetried) {
    LineCollector lines;
    answer(std::vector<Bench::Answer>(20, {kErrorOperationAborted, ""}));
    answer({{kNoError, "$A\r\n"}});
    const RunningPort running = run(&lines);
    EXPECT_EQ(lines.waitFor(1), std::vector<std::string>{"$A"});
    EXPECT_EQ(bench_.errorsCleared.get(), 20);
    EXPECT_FALSE(port_.hasReadFailed());
}

TEST_F(SerialPortTest, ActivityIsMoreThanTwoBytesWithinFiveSeconds) {
    clock_.setTickMs(1);
    EXPECT_FALSE(port_.isReceiving());
    Watched<std::size_t> received;
    port_.setTrace([&](std::string_view bytes, std::string_view tag) {
        if (tag == "rcv") received.change([&](std::size_t& count) { count += bytes.size(); });
    });
    const auto send = [&](const std::string& bytes, std::size_t total) {
        answer({{kNoError, bytes}});
        EXPECT_TRUE(received.waitUntil([&](std::size_t count) { return count == total; }));
    };
    const RunningPort running = run(nullptr);
    send("ab", 2);
    EXPECT_FALSE(port_.isReceiving());
    send("c", 3);
    EXPECT_TRUE(port_.isReceiving());
    clock_.advanceMs(4999);
    send("de", 5);  // too few to count
    EXPECT_TRUE(port_.isReceiving());
    clock_.advanceMs(1);
    EXPECT_FALSE(port_.isReceiving());
}

TEST_F(SerialPortTest, ReadsWithoutPausesWhereTheDeviceWaitsItself) {
    bench_.waitsForBytes = true;
    answer(std::vector<Bench::Answer>(1000, {kNoError, "line\r\n"}));  // 100 s with pauses
    LineCollector lines;
    const RunningPort running = run(&lines);
    EXPECT_EQ(lines.waitFor(1000).size(), 1000U);
}

TEST_F(SerialPortTest, WritesAreQueuedTracedAndSentInOrderAlsoByAListener) {
    Watched<std::vector<std::string>> traced;
    port_.setTrace([&](std::string_view bytes, std::string_view tag) {
        traced.change([&](auto& lines) { lines.push_back(std::string(tag) + " " + std::string(bytes)); });
    });
    LineCollector lines([](SerialPort& port, std::string_view) {
        port.write("one,");
        port.write("two");
        port.write("");
    });
    port_.write("closed");
    answer({{kNoError, "ASTRAL\r\n"}});
    const RunningPort running = run(&lines);
    EXPECT_TRUE(bench_.sent.waitUntil([](const auto& sent) { return sent == "one,two"; }));
    EXPECT_TRUE(traced.waitUntil([](const auto& all) { return all.size() == 4; }));
    EXPECT_EQ(traced.get(), (std::vector<std::string>{"rcv ASTRAL\r\n", "wrt one,", "wrt two", "xmt one,two"}));
}

TEST_F(SerialPortTest, ADeviceThatTakesNoOutputHoldsUpNeitherWriterNorClose) {
    bench_.takesOutput = false;
    const RunningPort running = run(nullptr);
    for (int i = 0; i < 6; ++i) port_.write(std::string(255, 'x'));
    port_.close();
    EXPECT_TRUE(bench_.closed);
    EXPECT_EQ(bench_.sent.get(), "");
}

TEST_F(SerialPortTest, DetachingWaitsForTheDeliveryInProgress) {
    Event delivering(Event::Reset::Manual);
    Event goOn(Event::Reset::Manual);
    std::atomic<bool> returned = false;
    LineCollector lines([&](SerialPort&, std::string_view) {
        delivering.set();
        goOn.wait(kDeadline);
        returned = true;
    });
    answer({{kNoError, "$A\r\n"}});
    const RunningPort running = run(&lines);
    ASSERT_TRUE(delivering.wait(kDeadline));
    std::atomic<bool> detached = false;
    std::thread owner([&] {
        port_.setListener(nullptr);
        EXPECT_TRUE(returned);
        detached = true;
    });
    EXPECT_FALSE(detached);
    goOn.set();
    owner.join();

    answer({{kNoError, "$B\r\n"}, {kNoError, "$C"}});
    ASSERT_TRUE(waitUntilScriptIsUsedUp());
    port_.close();
    EXPECT_EQ(lines.waitFor(1), std::vector<std::string>{"$A"});
}

TEST_F(SerialPortTest, LinesStayBufferedUntilSomebodyTakesThem) {
    LineCollector lines;
    Watched<std::string> received;
    port_.setTrace(
        [&](std::string_view bytes, std::string_view) { received.change([&](std::string& all) { all += bytes; }); });
    answer({{kNoError, "$A\r\n$B\r\n"}});
    const RunningPort running = run(nullptr);
    ASSERT_TRUE(received.waitUntil([](const auto& all) { return all == "$A\r\n$B\r\n"; }));
    std::array<char, 160> line{};
    int length = LineSplitter::kNoLine;
    while (length == LineSplitter::kNoLine)  // traced just before they are buffered
        length = port_.readLine(line);
    EXPECT_STREQ(line.data(), "$A");
    port_.setListener(&lines);
    answer({{kNoError, "$C\r\n"}});
    EXPECT_EQ(lines.waitFor(2), (std::vector<std::string>{"$B", "$C"}));
}

}}  // namespace korvel
