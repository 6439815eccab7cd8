#include "nav/PlacesFixture.h"
#include "nav/plan/FlightPlan.h"

namespace korvel { namespace {

/// Waypoints A to E on the equator, 30 NM apart from west to east.
class FlightPlanTest : public testing::Test {
 protected:
    FlightPlanTest() : plan_(entries("ABCDE")) {}

    static std::vector<PlanWaypoint> entries(std::string_view names) {
        std::vector<PlanWaypoint> list;
        for (const char name : names) {
            auto fix = std::make_shared<FixRecord>();
            fix->key = std::string("f.") + name;
            fix->position = degrees(0, (name - 'A') * 0.5);
            list.push_back({.text = fix->key, .key = fix->key, .record = fix});
        }
        return list;
    }
    /// The chosen waypoint's letter and the letter of the leg's start, "-" for none. The aircraft
    /// stands so many NM east of A and north of the equator.
    std::string choose(double eastNm, double northNm, double trackMag) {
        const auto leg = plan_.ChooseActiveLeg({.position = degrees(northNm / 60, eastNm / 60),
            .trackMag = trackMag,
            .variation = {.databaseDeg = variationDeg_}});
        if (!leg) return "none";
        std::string letters(1, leg->waypoint->key.back());
        return letters + (leg->start ? static_cast<char>('A' + RoundToInt(leg->start->lon / (0.5 * kDegToRad))) : '-');
    }

    FlightPlan plan_;
    double variationDeg_ = 0;
};

TEST_F(FlightPlanTest, FliesFromWaypointToWaypoint) {
    constexpr std::tuple<double, double, double, std::string_view> kSteps[] = {{0.5, 0, 90, "BA"},  // takes off at A
        {28.9, 0, 90, "BA"},                                                                        // 1.1 NM before B
        {29.1, 0, 90, "CB"},                                                                        // 0.9
        {57.5, 1.0, 330, "CB"},     // 2.7 NM, turned away from C, but not to D
        {63.5, -0.5, 90, "CB"},     // past C by 3.5 NM
        {62.0, -0.5, 90, "DC"},     // past C by 2 NM, on the way to D
        {40, 0, 270, "DC"},         // going back changes nothing
        {90, 0.5, kNoAngle, "ED"},  // the track is not known
        {120, 0, 90, "ED"},         // the last one stays
        {180, 0, 90, "ED"}};
    for (const auto& [eastNm, northNm, trackMag, chosen] : kSteps) {
        EXPECT_EQ(choose(eastNm, northNm, trackMag), chosen) << eastNm;
        EXPECT_EQ(plan_.currentKey().back(), chosen[0]);
    }
}

TEST_F(FlightPlanTest, ANewPlanSearchesForWhatLiesAhead) {
    constexpr std::tuple<double, double, double, std::string_view> kCases[] = {
        {40, 0, 90, "C-"},         // straight ahead, A and B behind
        {40, 0, 270, "A-"},        // the other way, the first of what lies there
        {75, 20, 150, "D-"},       // near enough to the right way
        {75, 20, kNoAngle, "A-"},  // nothing to go by
        {30.5, 0, 90, "CB"},       // over B
        {40, 0, 1, "C-"}           // the better side, then the nearer one
    };
    for (const auto& [eastNm, northNm, trackMag, chosen] : kCases) {
        plan_.activate();
        EXPECT_EQ(choose(eastNm, northNm, trackMag), chosen) << eastNm << trackMag;
        EXPECT_EQ(choose(eastNm, northNm, 200), chosen) << "one search only";
    }
    variationDeg_ = 30;
    plan_.activate();
    EXPECT_EQ(choose(75, 20, 120), "D-") << "150 degrees true";
}

TEST_F(FlightPlanTest, CommandsChangeTheActiveEntry) {
    EXPECT_EQ(choose(0.5, 0, 90), "BA");
    EXPECT_TRUE(plan_.moveTo("f.D"));
    EXPECT_EQ(plan_.currentKey(), "f.D");
    EXPECT_EQ(choose(1.5, 0, 90), "DA");
    EXPECT_TRUE(plan_.moveTo("f.A")) << "back to one that was passed";
    EXPECT_EQ(choose(10, 0, 90), "A-");
    EXPECT_FALSE(plan_.moveTo("f.X"));
    plan_.reverse();
    EXPECT_EQ(plan_.entries().front().key, "f.E");
    EXPECT_EQ(choose(130, 0, 270), "E-");
    EXPECT_NEAR(plan_.totalNm(), 120.0, 1e-6);
    plan_ = FlightPlan(entries("A"));
    EXPECT_EQ(choose(0, 0, 90), "A-");
    EXPECT_EQ(choose(50, 0, 90), "A-");
    plan_ = FlightPlan();
    EXPECT_EQ(choose(0, 0, 90), "none");
}

TEST_F(FlightPlanTest, AnEditedPlanGoesOnWithWhatIsFlownTo) {
    constexpr std::tuple<std::string_view, std::string_view> kCases[] = {{"ABCDE", "DA"},  // an altitude was changed
        {"ABCDEF", "DA"},                                                                  // behind it
        {"ABCFGDE", "FA"},                 // put before it: to be flown first
        {"AFBCDE", "DA"},                  // put before what was left out
        {"ABCE", "EA"},                    // it is gone: what follows
        {"DABCE", "D-"},                   // it was moved
        {"AEDBC", "DA"}, {"DBCDE", "D-"},  // twice: the one where it was
        {"ABC", "none"}, {"FG", "none"}, {"", "none"}};
    for (const auto& [edited, chosen] : kCases) {
        plan_ = FlightPlan(entries("ABCDE"));
        EXPECT_EQ(choose(0.5, 0, 90), "BA");
        EXPECT_TRUE(plan_.moveTo("f.D"));  // the pilot's choice: by itself it would fly to B
        FlightPlan next(entries(edited));
        EXPECT_EQ(next.goOnFrom(plan_), chosen != "none") << edited;
        plan_ = std::move(next);
        if (chosen != "none") { EXPECT_EQ(choose(2, 0, 90), chosen) << edited; }
    }
    FlightPlan untouched(entries("AB"));
    EXPECT_FALSE(untouched.goOnFrom(FlightPlan(entries("AB")))) << "nothing is flown to yet";
}

TEST_F(FlightPlanTest, FindsTheNextAltitudeAlongTheLegs) {
    std::vector<PlanWaypoint> list = entries("ABCDE");
    list[0].altitudeFt = 100;
    list[3].altitudeFt = 2500;
    plan_ = FlightPlan(std::move(list));
    const GeoPoint present = degrees(10.0 / 60, 0.5);
    EXPECT_FALSE(plan_.constraint(present)) << "nothing has been chosen yet";
    choose(29, 0, 90);
    const auto found = plan_.constraint(present);
    ASSERT_TRUE(found);
    EXPECT_EQ(found->altitudeFt, 2500);
    EXPECT_EQ(found->point, degrees(0, 1.5));
    EXPECT_NEAR(found->distanceNm, DistanceNm(present, degrees(0, 1.0)) + 30.0, 1e-9);
    plan_.moveTo("f.E");
    EXPECT_FALSE(plan_.constraint(present));
}

}}  // namespace korvel
