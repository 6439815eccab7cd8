#include <gtest/gtest.h>

#include "cockpit/NightWatch.h"
#include "geo/Geodesy.h"
#include "nav/alarms/AlarmBoard.h"

namespace korvel { namespace {

constexpr std::int64_t kNoonUtc = 1782043200;  // 2026-06-21, 12:00
constexpr int kLocalNoon = 14 * 3600;          // Munich's clocks
constexpr GeoPoint kAugsburg{48.4 * kDegToRad, 10.9 * kDegToRad};
constexpr GeoPoint kMunich{48.137 * kDegToRad, 11.575 * kDegToRad};  // the sun sets at 21:17

TEST(NightWatch, TellsOfAnArrivalAfterSunset) {
    const struct {
        const char* name;
        NightWatch::Situation now;
        const char* words;
    } cases[] = {
        {"by day", {kAugsburg, kMunich, 7.2 * 3600, kNoonUtc, kLocalNoon}, ""},
        {"after sunset", {kAugsburg, kMunich, 7.4 * 3600, kNoonUtc, kLocalNoon}, "Arrival after sunset (21:17)"},
        {"the next morning", {kAugsburg, kMunich, 15.5 * 3600, kNoonUtc, kLocalNoon}, ""},
        {"beyond midnight", {kAugsburg, kMunich, 11.5 * 3600, kNoonUtc, kLocalNoon}, "Arrival after sunset (21:17)"},
        {"it is night already", {kAugsburg, kMunich, 1800, kNoonUtc + 8 * 3600, kLocalNoon + 8 * 3600}, ""},
        {"in the polar night", {kAugsburg, GeoPoint{-80 * kDegToRad, 0}, 3600, kNoonUtc, kLocalNoon},
            "No daylight at arrival"},
        {"the speed is not known", {kAugsburg, kMunich, {}, kNoonUtc, kLocalNoon}, ""},
    };
    for (const auto& each : cases) {
        AlarmBoard board;
        NightWatch watch(board);
        watch.update(each.now);
        board.update(1000);
        EXPECT_TRUE(board.shown().empty()) << each.name;
        board.update(11001);
        ASSERT_EQ(board.shown().empty(), std::string_view(each.words).empty()) << each.name;
        if (!board.shown().empty()) { EXPECT_EQ(board.shown()[0].words, each.words); }
    }
}

TEST(NightWatch, DoesNotFlapAtSunset) {
    AlarmBoard board;
    NightWatch watch(board);
    const auto shownWith = [&](double hours, std::int64_t ms) {
        watch.update({kAugsburg, kMunich, hours * 3600, kNoonUtc, kLocalNoon});
        board.update(ms);
        return !board.shown().empty();
    };
    EXPECT_FALSE(shownWith(7.25, 1000)) << "four minutes before sunset";
    shownWith(7.32, 2000);
    EXPECT_TRUE(shownWith(7.32, 13000));
    EXPECT_TRUE(shownWith(7.25, 14000));
    EXPECT_FALSE(shownWith(7.1, 15000));
}

}}  // namespace korvel
