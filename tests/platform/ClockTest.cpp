#include <gtest/gtest.h>

#include "platform/SystemClock.h"
#include "platform/VirtualClock.h"

namespace korvel { namespace {

TEST(VirtualClock, LocalTimeAndUnixSecondsMoveWithTheTicks) {
    VirtualClock clock({2024, 2, 28, 23, 59, 58}, 3600);
    EXPECT_EQ(clock.tickMs(), 1);
    const std::int64_t start = clock.unixSeconds();
    EXPECT_EQ(start, 1709161198);  // 22:59:58 UTC
    clock.advanceMs(1999);
    EXPECT_EQ(clock.localNow(), (LocalTime{2024, 2, 28, 23, 59, 59}));
    clock.advanceMs(1);
    EXPECT_EQ(clock.localNow(), (LocalTime{2024, 2, 29, 0, 0, 0}));
    EXPECT_EQ(clock.tickMs(), 2001);
    EXPECT_EQ(clock.unixSeconds(), start + 2);
    clock.advanceMs(-5000);
    EXPECT_EQ(clock.tickMs(), 2001);
}

TEST(SystemClock, IsConsistent) {
    const SystemClock clock;
    const std::int64_t before = clock.tickMs();
    EXPECT_GT(before, 0);
    EXPECT_GE(clock.tickMs(), before);
    // No zone is more than a day from UTC.
    VirtualClock local(clock.localNow());
    EXPECT_NEAR(static_cast<double>(local.unixSeconds()), static_cast<double>(clock.unixSeconds()), 86400.0);
}

}}  // namespace korvel
