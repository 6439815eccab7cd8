#include <cmath>

#include <gtest/gtest.h>

#include "geo/Geodesy.h"
#include "geo/Units.h"
#include "nav/approach/ApproachMode.h"
#include "navdb/records/AirportRecord.h"

namespace korvel { namespace {

GeoPoint away(GeoPoint from, double nm, double courseDeg) {
    GeoPoint to;
    PointAtRadialDistance(from.lat, from.lon, nm / kNmPerRadian, courseDeg * kDegToRad, to.lat, to.lon);
    return to;
}

const GeoPoint kField{47.5 * kDegToRad, -122.3 * kDegToRad};

/// Two parallel runways 14 and 32, 2 NM long and 0.2 NM apart, and two of which too little is known.
AirportRecord airport() {
    AirportRecord record;
    record.key = "a.KXYZ";
    record.ident = Ident("KXYZ");
    record.elevationFt = 100;
    for (const char side : {'L', 'R'}) {
        const GeoPoint low = side == 'L' ? kField : away(kField, 0.2, 230);
        const std::string other(1, side == 'L' ? 'R' : 'L');
        RunwayRecord runway;
        runway.lengthFt = 12152;
        runway.ends = {{.id = std::string("14") + side, .position = low, .elevationFt = 400},
            {.id = "32" + other, .position = away(low, 2, 140)}};
        record.runways.push_back(runway);
    }
    record.runways.push_back({.ends = {{.id = "H1", .position = kField}}});
    record.runways.push_back({.ends = {{.id = "09", .position = kField}, {.id = "27"}}});
    return record;
}

TEST(LandingRunwayTest, EachEndWithKnownPlacesIsOfferedWithItsElevation) {
    const std::vector<LandingRunway> all = landingRunways(airport());
    ASSERT_EQ(all.size(), 4U);
    EXPECT_EQ(all[0].id, "14L");
    EXPECT_EQ(all[1].id, "32R");
    EXPECT_NEAR(all[0].courseTrueDeg, 140, 0.01);
    EXPECT_NEAR(all[1].courseTrueDeg, 320, 0.05);
    EXPECT_EQ(all[0].thresholdFt, 400);
    EXPECT_EQ(all[1].thresholdFt, 100) << "the airport's";
    EXPECT_EQ(all[3].airport, "KXYZ");
}

TEST(LandingRunwayTest, FiguresAlongBesideAndAboveTheCenterLine) {
    const LandingRunway runway = landingRunways(airport())[0];
    const GeoPoint five = away(runway.threshold, 5, 320);
    struct Case {
        GeoPoint at;
        double toGo;
        double across;
        std::optional<int> glideFt;
    };
    const double perNm = std::tan(3 * kDegToRad) * kFeetPerNm;  // 318 ft
    const Case cases[] = {
        {five, 5, 0, RoundToInt(450 + 5 * perNm)},
        {away(five, 1, 50), 5, 1, RoundToInt(450 + 5 * perNm)},
        {away(five, 1, 230), 5, -1, RoundToInt(450 + 5 * perNm)},
        {away(five, 6, 230), 5, -6, std::nullopt},
        {away(runway.threshold, 10.1, 320), 10.1, 0, std::nullopt},
        {runway.threshold, 0, 0, 450},
        {away(runway.threshold, 1, 140), -1, 0, std::nullopt},
    };
    for (const Case& one : cases) {
        const ApproachFigures seen = approachFigures(runway, one.at);
        EXPECT_NEAR(seen.toGoNm, one.toGo, 0.01);
        EXPECT_NEAR(seen.crossTrackNm, one.across, 0.01);
        ASSERT_EQ(seen.glidePathFt.has_value(), one.glideFt.has_value()) << one.toGo << ' ' << one.across;
        EXPECT_NEAR(seen.glidePathFt.value_or(0), one.glideFt.value_or(0), 3);
    }
    LandingRunway unknown = runway;
    unknown.thresholdFt.reset();
    EXPECT_EQ(approachFigures(unknown, five).glidePathFt, std::nullopt);
}

class ApproachModeTest : public testing::Test {
 protected:
    /// As seen from the threshold of 14L: out along the center line, and to the left of it.
    std::string fly(double outNm, double leftNm, std::optional<double> track, std::int64_t ms = 500) {
        now_ += ms;
        const GeoPoint on = away(kField, std::abs(outNm), outNm >= 0 ? 320 : 140);
        mode_.update({.position = away(on, std::abs(leftNm), leftNm >= 0 ? 50 : 230),
                         .trackTrueDeg = track,
                         .groundSpeedKt = speedKt_,
                         .destinationKey = destination_,
                         .runways = destination_.empty() ? std::span<const LandingRunway>() : runways_,
                         .automatic = automatic_},
            now_);
        return mode_.runway() ? mode_.runway()->id : "";
    }
    std::string flyFor5s(double outNm, double leftNm, std::optional<double> track) {
        fly(outNm, leftNm, track);
        return fly(outNm, leftNm, track, 4500);
    }

    const std::vector<LandingRunway> runways_ = landingRunways(airport());
    ApproachMode mode_;
    std::string destination_ = "a.KXYZ";
    bool automatic_ = true;
    double speedKt_ = 90;
    std::int64_t now_ = 1000;
};

TEST_F(ApproachModeTest, EntersByItselfOnlyWhenLinedUp) {
    const struct {
        double outNm;
        double leftNm;
        std::optional<double> track;
        const char* runway;
    } cases[] = {{6, 0, 140, "14L"}, {6, -0.2, 140, "14R"}, {6, 1.2, 180, "14L"}, {6, 1.3, 140, ""}, {6, 0, 186, ""},
        {6, 0, 320, ""}, {8.1, 0, 140, ""}, {0.4, 0, 140, ""}, {6, 0, std::nullopt, ""}, {-6, 0, 320, "32R"}};
    for (const auto& one : cases) {
        mode_ = {};
        EXPECT_EQ(flyFor5s(one.outNm, one.leftNm, one.track), one.runway) << one.outNm << ' ' << one.leftNm;
    }
    mode_ = {};
    EXPECT_EQ(fly(6, 0, 140), "");
    EXPECT_EQ(fly(6, 0, 140, 2999), "") << "not for three seconds yet";
    EXPECT_EQ(fly(6, 0, 250, 1), "");
    EXPECT_EQ(fly(6, 0, 140, 5000), "") << "begins anew";
    EXPECT_EQ(fly(6, 0, 140, 3000), "14L");
    mode_ = {};
    automatic_ = false;
    EXPECT_EQ(flyFor5s(6, 0, 140), "");
    automatic_ = true;
    destination_.clear();
    EXPECT_EQ(flyFor5s(6, 0, 140), "");
    destination_ = "a.KXYZ";
    speedKt_ = 30;
    EXPECT_EQ(flyFor5s(6, 0, 140), "");
}

TEST_F(ApproachModeTest, LeavesByItselfWhatItHasEntered) {
    const struct {
        double outNm;
        double leftNm;
        double track;
        bool stays;
    } cases[] = {{3, 0.3, 230, true}, {3, 0.3, 250, false}, {3, 2.4, 140, true}, {3, 2.6, 140, false},
        {-2.9, 0, 140, true}, {-3.1, 0, 140, false}};
    for (const auto& one : cases) {
        mode_ = {};
        ASSERT_EQ(flyFor5s(6, 0, 140), "14L");
        fly(one.outNm, one.leftNm, one.track);
        EXPECT_EQ(fly(one.outNm, one.leftNm, one.track, 9999), "14L") << "for a moment only";
        EXPECT_EQ(fly(one.outNm, one.leftNm, one.track, 1), one.stays ? "14L" : "") << one.outNm;
    }
    mode_ = {};
    flyFor5s(6, 0, 140);
    fly(3, 0.3, 250);
    fly(3, 0.3, 140, 9000);
    EXPECT_EQ(fly(3, 0.3, 250, 2000), "14L") << "came back in between";
    speedKt_ = 20;
    fly(-1, 0, 140);
    EXPECT_EQ(fly(-1, 0, 140, 10000), "") << "landed";
}

TEST_F(ApproachModeTest, ThePilotsChoiceStaysUntilTheDestinationChanges) {
    destination_.clear();
    mode_.choose(runways_[0]);
    EXPECT_EQ(flyFor5s(4, 3, 320), "14L");
    EXPECT_FALSE(mode_.established());
    destination_ = "a.KXYZ";
    EXPECT_EQ(flyFor5s(4, 1.2, 140), "14L") << "now flown to";
    EXPECT_TRUE(mode_.established());
    EXPECT_EQ(flyFor5s(20, 9, 320), "14L");
    EXPECT_TRUE(mode_.established()) << "from then on";
    destination_ = "a.KABC";
    EXPECT_EQ(fly(4, 3, 140), "");
}

TEST_F(ApproachModeTest, WhoLeavesIsLeftAloneUntilFarAway) {
    ASSERT_EQ(flyFor5s(6, 0, 140), "14L");
    mode_.leave();
    EXPECT_EQ(flyFor5s(6, 0, 140), "");
    EXPECT_EQ(flyFor5s(13, 0, 140), "");
    EXPECT_EQ(flyFor5s(7, 0, 140), "14L");
    mode_.leave();
    destination_ = "a.KABC";
    fly(6, 0, 140);
    destination_ = "a.KXYZ";
    EXPECT_EQ(flyFor5s(6, 0, 140), "14L") << "another flight";
}

}}  // namespace korvel
