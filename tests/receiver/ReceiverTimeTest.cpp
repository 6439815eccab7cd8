#include <gtest/gtest.h>

#include "base/Calendar.h"
#include "receiver/ReceiverTime.h"

namespace korvel { namespace {

TEST(ReceiverTime, TellsTheMomentOrNothing) {
    const std::int64_t built = localSeconds({.year = 2026, .month = 7, .day = 1});
    const std::tuple<const char*, const char*, LocalTime> good[] = {
        {"092204.999", "010726", {2026, 7, 1, 9, 22, 4}},
        {"235960", "311226", {2026, 12, 31, 23, 59, 59}},  // a leap second
        {"000000", "290228", {2028, 2, 29}},
        {"120000.00", "300626", {2046, 2, 13, 12}},   // the day before the program was built
        {"120000.00", "180799", {2038, 10, 17, 12}},  // two rounds
        {"120000.00", "060180", {2038, 11, 21, 12}},
        {"120000.00", "311279", {2079, 12, 31, 12}},
    };
    for (const auto& [time, date, told] : good) {
        const auto seconds = receiverUnixSeconds(time, date, built);
        ASSERT_TRUE(seconds) << time << ' ' << date;
        EXPECT_EQ(localTimeAt(*seconds), told) << dateText(localTimeAt(*seconds));
        EXPECT_GE(*seconds, built);
    }
    for (const auto& [time, date] :
        {std::pair{"", "010726"}, {"0922", "010726"}, {"092204", ""}, {"092204", "320726"}, {"092204", "290227"},
            {"092204", "001326"}, {"246000", "010726"}, {"-92204", "010726"}, {"09220a", "010726"}})
        EXPECT_FALSE(receiverUnixSeconds(time, date, built)) << time << ' ' << date;
    EXPECT_GT(builtAtUnixSeconds(), localSeconds({.year = 2026}));
    EXPECT_EQ(builtAtUnixSeconds() % 86400, 0);
}

}}  // namespace korvel
