#include <chrono>

#include <gtest/gtest.h>

#include "geo/Geodesy.h"
#include "geo/Sun.h"

namespace korvel { namespace {

std::int64_t utc(int year, unsigned month, unsigned day, int hour, int minute) {
    const std::chrono::sys_days date = std::chrono::year(year) / std::chrono::month(month) / std::chrono::day(day);
    return date.time_since_epoch().count() * 86400LL + hour * 3600 + minute * 60;
}

// As almanacs print them, to the minute.
TEST(Sun, RisesAndSetsAsInTheAlmanac) {
    const struct {
        const char* name;
        double lat, lon;
        std::int64_t at, rise, set;
    } cases[] = {
        {"London in winter", 51.5074, -0.1278, utc(2026, 12, 21, 12, 0), utc(2026, 12, 21, 8, 4),
            utc(2026, 12, 21, 15, 54)},
        {"Greenwich at the equinox", 51.4769, 0, utc(2026, 3, 20, 1, 0), utc(2026, 3, 20, 6, 3),
            utc(2026, 3, 20, 18, 14)},
        {"Munich in summer", 48.137, 11.575, utc(2026, 6, 21, 20, 0), utc(2026, 6, 21, 3, 14),
            utc(2026, 6, 21, 19, 17)},
        {"Sydney, the day before by UTC", -33.8688, 151.2093, utc(2025, 12, 31, 22, 0), utc(2025, 12, 31, 18, 48),
            utc(2026, 1, 1, 9, 9)},
        {"Seattle, the day after by UTC", 47.6062, -122.3321, utc(2026, 11, 28, 0, 0), utc(2026, 11, 27, 15, 32),
            utc(2026, 11, 28, 0, 21)},
    };
    for (const auto& each : cases) {
        const GeoPoint place{each.lat * kDegToRad, each.lon * kDegToRad};
        const SunDay day = sunDay(place, each.at);
        EXPECT_NEAR(static_cast<double>(day.rise), static_cast<double>(each.rise), 120) << each.name;
        EXPECT_NEAR(static_cast<double>(day.set), static_cast<double>(each.set), 120) << each.name;
        EXPECT_EQ(day.isUp(each.at), each.at >= each.rise && each.at < each.set) << each.name;
    }
    const GeoPoint tromso{69.65 * kDegToRad, 18.96 * kDegToRad};
    EXPECT_TRUE(sunDay(tromso, utc(2026, 6, 21, 0, 0)).isUp(utc(2026, 6, 21, 0, 0)));
    EXPECT_FALSE(sunDay(tromso, utc(2026, 12, 21, 11, 0)).isUp(utc(2026, 12, 21, 11, 0)));
}

}}  // namespace korvel
