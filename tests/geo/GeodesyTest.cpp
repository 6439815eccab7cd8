#include <cmath>
#include <cstdlib>
#include <limits>

#include <gtest/gtest.h>

#include "geo/Geodesy.h"
#include "geo/Units.h"
#include "geo/Variation.h"
#include "geo/WholeDegreeTrig.h"

namespace korvel { namespace {

constexpr double kMetre = 1 / 6371000.0;  // in radians of arc

GeoPoint at(double latDeg, double lonDeg) { return {latDeg * kDegToRad, lonDeg * kDegToRad}; }

// The worked examples of the public Aviation Formulary: Los Angeles (33d57mN 118d24mW) to New
// York (40d38mN 73d47mW).
const GeoPoint kLax = at(33 + 57.0 / 60, -(118 + 24.0 / 60));
const GeoPoint kJfk = at(40 + 38.0 / 60, -(73 + 47.0 / 60));

TEST(Geodesy, MatchesThePublishedExample) {
    EXPECT_NEAR(GreatCircleDistance(kLax.lat, kLax.lon, kJfk.lat, kJfk.lon), 0.623585, 2e-6);
    EXPECT_NEAR(DistanceNm(kLax, kJfk), 2144, 0.5);
    EXPECT_NEAR(TrueCourse(kLax.lat, kLax.lon, kJfk.lat, kJfk.lon), 1.150035, 2e-6);
    EXPECT_NEAR(TrueCourseDeg(kLax, kJfk), 66, 0.5);

    // 100 nm from Los Angeles on that course: 34d37mN 116d33mW.
    GeoPoint out;
    PointAtRadialDistance(kLax.lat, kLax.lon, 100 / kNmPerRadian, 1.150035, out.lat, out.lon);
    EXPECT_NEAR(out.lat, 0.604180, 2e-6);
    EXPECT_NEAR(out.lon, -2.034206, 2e-6);

    // Where the route crosses 111 degrees west, as the formulary's intermediate latitude: 36d24mN.
    const GeoPoint west = at(36 + 23.65967 / 60, -111);
    EXPECT_NEAR(DistanceNm(kLax, west) + DistanceNm(west, kJfk), DistanceNm(kLax, kJfk), 1e-4);
}

TEST(Geodesy, DistanceAndCourseAtTheEdgesOfTheWorld) {
    const struct {
        const char* what;
        GeoPoint from, to;
        double nm, courseDeg;
    } cases[] = {
        {"a point and itself", at(12, 34), at(12, 34), 0, 0},
        {"closer than the same point's tolerance", at(12, 34), {at(12, 34).lat + 1e-6, at(12, 34).lon},
            3437.7467707849396e-6, 0},
        {"east along the equator", at(0, 10), at(0, 11), 60, 90},
        {"west along the equator", at(0, 11), at(0, 10), 60, 270},
        {"across the antimeridian", at(0, 179.5), at(0, -179.5), 60, 90},
        {"across Greenwich", at(0, 0.5), at(0, -0.5), 60, 270},
        {"from the north pole", at(90, 0), at(80, 50), 600, 180},
        {"from the south pole", at(-90, 0), at(-80, 50), 600, 0},
        {"to the north pole", at(80, 50), at(90, 0), 600, 0},
        {"half around the world", at(0, 0), at(0, 180), 10800, 90},
    };
    for (const auto& c : cases) {
        EXPECT_NEAR(DistanceNm(c.from, c.to), c.nm, 1e-4) << c.what;
        EXPECT_NEAR(TrueCourseDeg(c.from, c.to), c.courseDeg, 1e-9) << c.what;
    }
}

TEST(Geodesy, RadialDistanceAcrossTheAntimeridianAndThePoles) {
    GeoPoint out;
    PointAtRadialDistance(0, 179.5 * kDegToRad, kDegToRad, kPi / 2, out.lat, out.lon);
    EXPECT_NEAR(out.lon, -179.5 * kDegToRad, kMetre);
    PointAtRadialDistance(0, -179.5 * kDegToRad, kDegToRad, 1.5 * kPi, out.lat, out.lon);
    EXPECT_NEAR(out.lon, 179.5 * kDegToRad, kMetre);
    PointAtRadialDistance(0, 179 * kDegToRad, kDegToRad, kPi / 2, out.lat, out.lon);
    EXPECT_LT(out.lon, kPi);
    PointAtRadialDistance(89 * kDegToRad, 0.25, 2 * kDegToRad, 0, out.lat, out.lon);
    EXPECT_NEAR(out.lat, 89 * kDegToRad, kMetre);
    EXPECT_NEAR(PositiveMod(out.lon, kTwoPi), 0.25 + kPi, 1e-9);
}

TEST(Geodesy, MidLatitudeLiesOnTheGreatCircle) {
    GeoPoint middle;
    GreatCircleMidLatitude(kLax.lat, kLax.lon, kJfk.lat, kJfk.lon, middle.lat, middle.lon);
    EXPECT_NEAR(middle.lon, (kLax.lon + kJfk.lon) / 2, 1e-12);
    EXPECT_NEAR(DistanceNm(kLax, middle) + DistanceNm(middle, kJfk), DistanceNm(kLax, kJfk), 1e-6);
    GreatCircleMidLatitude(0.1, 1, 0.3, 1, middle.lat, middle.lon);
    EXPECT_EQ(middle.lat, 0.2);
}

TEST(Geodesy, RoundingAndRemainders) {
    using Limits = std::numeric_limits<int>;
    for (const auto& [number, whole] :
        {std::pair{2.5, 3}, {-2.5, -3}, {-0.49, 0}, {7.1e9, Limits::max()}, {-7.1e9, Limits::min()}, {std::nan(""), 0}})
        EXPECT_EQ(RoundToInt(number), whole) << number;
    EXPECT_EQ(PositiveMod(-90, 360), 270);
    EXPECT_EQ(PositiveMod(720, 360), 0);
    EXPECT_TRUE(std::isnan(PositiveMod(std::nan(""), 360))) << "not north";
    EXPECT_LT(PositiveMod(-1e-18, 360), 360) << "stays below the modulus when the sum rounds up";
    EXPECT_EQ(TruncTowardZero(-1.75), -1);
    EXPECT_EQ(FractionalPart(-1.75), -0.75);
}

TEST(Geodesy, HeadingDifferenceTurnsTheShorterWay) {
    struct Case {
        double from, to;
        int turn;
    };
    for (const Case& c : {Case{10, 350, -20}, Case{350, 10, 20}, Case{0, 180, 180}, Case{180, 0, -180},
             Case{359.6, 0.4, 0}, Case{90, 271, -179}, Case{271, 90, 179}, Case{1, 182, -179}})
        EXPECT_EQ(HeadingDifferenceDeg(c.from, c.to), c.turn) << c.from << " to " << c.to;
}

TEST(WholeDegreeTrig, TableServesEveryAngle) {
    for (const int angle : {-810, -360, -90, -1, 0, 30, 359, 360, 725}) {
        EXPECT_NEAR(SinDeg(angle), std::sin(angle * kDegToRad), 1e-12) << angle;
        EXPECT_NEAR(CosDeg(angle), std::cos(angle * kDegToRad), 1e-12) << angle;
    }
    EXPECT_EQ(RotatePoint(10, 0, 90), std::make_pair(0, 10));
    EXPECT_EQ(RotatePoint(7, -5, -90), std::make_pair(-5, -7));
    EXPECT_EQ(RotatePoint(3, 1, 45), std::make_pair(1, 3));
}

TEST(Units, ConvertAndLabel) {
    UnitLabels labels;
    EXPECT_DOUBLE_EQ(ConvertDistance(10, distanceUnitOf(1), &labels), 11.507794);
    EXPECT_EQ(labels.speed, "mph");
    EXPECT_DOUBLE_EQ(ConvertDistance(10, distanceUnitOf(2)), 18.52);
    EXPECT_EQ(ConvertDistance(10, distanceUnitOf(5), &labels), 10);
    EXPECT_EQ(labels.distance, "nm");
}

TEST(Variation, ReceiverFirstThenDatabaseThenNone) {
    Variation variation;
    EXPECT_EQ(variation.TrueToMagnetic(kNoAngle), kNoAngle);
    EXPECT_EQ(variation.TrueToMagnetic(-10), 350) << "nothing known: only reduced";
    EXPECT_FALSE(variation.isKnown());
    variation.databaseDeg = 16;
    EXPECT_EQ(variation.TrueToMagnetic(10), 354);
    variation.receiverDeg = -3;
    EXPECT_EQ(variation.TrueToMagnetic(10), 13);
    EXPECT_EQ(variation.MagneticToTrue(1), 358);
    variation.ignoreReceiver = true;
    EXPECT_EQ(variation.MagneticToTrue(350), 6);
    EXPECT_EQ(variation.MagneticToTrue(kNoAngle), kNoAngle);
    EXPECT_TRUE(variation.isKnown());
    variation.databaseDeg = kNoAngle;
    EXPECT_FALSE(variation.isKnown()) << "what is ignored is not known";
    variation.ignoreReceiver = false;
    EXPECT_TRUE(variation.isKnown());
}

}}  // namespace korvel
