#include <gtest/gtest.h>

#include "base/Guarded.h"
#include "platform/VirtualClock.h"
#include "receiver/FakePorts.h"
#include "receiver/ReplaySource.h"

namespace korvel { namespace {

class ReplaySourceTest : public testing::Test, protected SentenceListener {
 protected:
    using Lines = std::vector<std::string>;

    void onLine(std::string_view line, std::int64_t arrivedMs) override {
        EXPECT_EQ(arrivedMs, clock_.tickMs());
        lines_.lock()->emplace_back(line);
    }
    Lines lines() { return *lines_.lock(); }

    VirtualClock clock_;
    Guarded<Lines> lines_;
};

constexpr double kAtOnce = 1e9;

TEST_F(ReplaySourceTest, DeliversLinesLikeAPortAndThenFallsSilent) {
    // The second step alone is more than a port's buffer holds.
    const ReplayStep steps[] = {{0, "$A\r\nnoise\xA0\r\n\r\n$B"},
        {3'600'000, "\r\n" + std::string(200, 'x') + "\r\n$C\r\n"}, {7'200'000, std::string(3000, 'x') + "\r\n$D\r\n"}};
    ReplaySource source({std::begin(steps), std::end(steps)}, {.label = "a.log", .speed = kAtOnce}, clock_);
    EXPECT_EQ(source.label(), "a.log");
    EXPECT_FALSE(source.isReceiving());
    for (int round = 0; round < 2; ++round) {
        ASSERT_EQ(source.start(*this), "");
        ASSERT_TRUE(eventually([&] { return !source.stateText().empty(); }));
        EXPECT_EQ(lines(), (Lines{"$A", "noise\xA0", "$B", "$C", "$D"})) << round;
        EXPECT_EQ(source.stateText(), "Replay ended");
        EXPECT_TRUE(source.isRunning());
        EXPECT_TRUE(source.isReceiving());
        source.stop();
        EXPECT_FALSE(source.isRunning());
        lines_.lock()->clear();
    }
    clock_.advanceMs(5000);
    EXPECT_FALSE(source.isReceiving());
}

TEST_F(ReplaySourceTest, BeginsAgainAndStopsInTheMiddle) {
    ReplaySource source({{0, "$A\r\n"}}, {.speed = kAtOnce, .loop = true}, clock_);
    ASSERT_EQ(source.start(*this), "");
    EXPECT_TRUE(eventually([&] { return lines().size() > 3; }));
    source.stop();
    const std::size_t count = lines().size();
    EXPECT_EQ(source.stateText(), "");
    ReplaySource slow({{0, "$B\r\n"}, {3'600'000, "$C\r\n"}}, {}, clock_);
    ASSERT_EQ(slow.start(*this), "");
    EXPECT_TRUE(eventually([&] { return lines().size() == count + 1; }));
    slow.stop();
    EXPECT_EQ(lines().size(), count + 1) << "an hour is not waited for";
    EXPECT_EQ(ReplaySource({}, {}, clock_).start(*this), "Nothing to replay");
}

}}  // namespace korvel
