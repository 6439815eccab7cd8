#include <cmath>
#include <fstream>
#include <string>

#include <gtest/gtest.h>

#include "geo/Geodesy.h"
#include "geo/MagneticModel.h"

namespace korvel { namespace {

TEST(MagneticModel, AgreesWithItsPublishedTestPoints) {
    std::ifstream points(KORVEL_TEST_DATA "/wmm2025-test.csv");
    std::string line;
    std::getline(points, line);
    ASSERT_TRUE(line.starts_with("date,alt,lat,lon,")) << line;
    int count = 0;
    double year = 0, km = 0, lat = 0, lon = 0, declination = 0;
    while (std::getline(points, line)) {
        ASSERT_EQ(std::sscanf(line.c_str(), "%lf,%lf,%lf,%lf,%*f,%*f,%*f,%*f,%*f,%*f,%lf", &year, &km, &lat, &lon,
                      &declination),
            5);
        const GeoPoint point{lat * kDegToRad, lon * kDegToRad};
        EXPECT_NEAR(modelVariationDeg(point, year, km / 0.0003048), declination, 0.00501) << line;
        ++count;
    }
    EXPECT_EQ(count, 100);
}

TEST(MagneticModel, EndsSomewhere) {
    const GeoPoint seattle{47.5 * kDegToRad, -122.3 * kDegToRad};
    EXPECT_NE(modelVariationDeg(seattle, 2025.0), modelVariationDeg(seattle, 2030.0));
    EXPECT_EQ(modelVariationDeg(seattle, 1970.0), modelVariationDeg(seattle, kMagneticModelBegins));
    EXPECT_EQ(modelVariationDeg(seattle, 2040.0), modelVariationDeg(seattle, kMagneticModelEnds));
    for (const double pole : {kPi / 2, -kPi / 2}) {
        const double beside = modelVariationDeg({pole * (1 - 1e-7), 1}, 2026);
        EXPECT_NEAR(modelVariationDeg({pole, 1}, 2026), beside, 0.01);
    }
    EXPECT_NEAR(modelVariationDeg({0.5, kPi}, 2026), modelVariationDeg({0.5, -kPi}, 2026), 1e-9);
}

TEST(MagneticModel, CountsTheDaysOfAYear) {
    EXPECT_EQ(decimalYear(2026, 1, 1), 2026.0);
    EXPECT_NEAR(decimalYear(2028, 12, 31), 2029 - 1.0 / 366, 1e-9);
    EXPECT_NEAR(decimalYear(2026, 7, 2), 2026 + 182.0 / 365, 1e-9);
}

}}  // namespace korvel
