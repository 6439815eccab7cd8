#include <string>
#include <tuple>

#include <gtest/gtest.h>

#include "geo/GeoText.h"

namespace korvel { namespace {

TEST(GeoText, CoordinatesCarryInsteadOfShowingSixtyMinutes) {
    using Case = std::tuple<double, int, std::string>;
    for (const auto& [degrees, decimals, text] : {Case{48, 0, "N48°00'"}, {-0.5, 0, "S00°30'"},
             {48.35366, 2, "N48°21.22'"}, {47.99999999, 2, "N48°00.00'"}, {89.9999, 0, "N90°00'"}})
        EXPECT_EQ(latitudeText(degrees, decimals), text);
    for (const auto& [degrees, decimals, text] : {Case{8.5, 0, "E008°30'"}, {-123.755, 1, "W123°45.3'"},
             {180, 0, "E180°00'"}, {-180, 0, "E180°00'"}, {181, 0, "W179°00'"}, {-350, 0, "E010°00'"}})
        EXPECT_EQ(longitudeText(degrees, decimals), text);
}

TEST(GeoText, DistancesAreNeverRoundedToAWrongNumber) {
    const std::tuple<int, double, std::string> cases[] = {{0, 65, "65 nm"}, {0, 32.5, "32.5 nm"}, {0, 12.5, "12.5 nm"},
        {0, 0.5, "0.5 nm"}, {0, 250, "250 nm"}, {1, 65, "74.8 mi"}, {1, 100, "115 mi"}, {2, 1, "1.9 km"},
        {2, 50 / 1.852, "50 km"}, {9, 99.96, "100 nm"}};
    for (const auto& [unit, nm, text] : cases) EXPECT_EQ(distanceText(nm, distanceUnitOf(unit)), text);
    EXPECT_EQ(distanceTenthsText(65, DistanceUnit::NauticalMiles), "65.0 nm");
    EXPECT_EQ(distanceTenthsText(250, DistanceUnit::NauticalMiles), "250 nm");
}

TEST(GeoText, CoursesAndAges) {
    for (const auto& [degrees, text] : {std::pair{83.4, "083"}, {0.2, "360"}, {359.7, "360"}, {-1., "359"}})
        EXPECT_EQ(courseText(degrees), text);
    EXPECT_EQ(courseText(1, 2) + courseText(1, std::nullopt), "359°M001°T");
    for (const auto& [seconds, text] : {std::pair{12, "12 s"}, {59, "59 s"}, {125, "2 min 05 s"}, {3599, "59 min 59 s"},
             {3600, "1 h 00 min"}, {3720, "1 h 02 min"}})
        EXPECT_EQ(ageText(seconds), text);
}

}}  // namespace korvel
