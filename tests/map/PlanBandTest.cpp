#include <gtest/gtest.h>

#include "map/DayMap.h"
#include "map/PlanBand.h"
#include "map/layers/AircraftLayer.h"
#include "map/layers/PlanBandLayer.h"
#include "paint/LabelSpace.h"

namespace korvel { namespace {

/// Four waypoints a degree apart up the meridian, the third one is flown to.
class PlanBandTest : public testing::Test {
 protected:
    PlanBandTest() {
        auto plan = std::make_shared<PlanView>();
        plan->rows.resize(4);
        for (int i = 0; i < 4; ++i) {
            PlanRow& row = plan->rows[static_cast<std::size_t>(i)];
            row.key = "f.W" + std::to_string(i);
            row.position = atDegrees(47 + i, 10);
        }
        plan->rows[0].flown = plan->rows[1].flown = true;
        plan->active = 2;
        plan->totalNm = 180;
        data_.position = atDegrees(48.5, 10);
        data_.activeWaypoint = atDegrees(49, 10);
        data_.plan = plan;
    }
    MapView view() const { return map_.content(data_).view; }
    Point at(double latDeg, double lonDeg = 10) const { return view().projection.project(atDegrees(latDeg, lonDeg)); }
    std::optional<PlanBand> take(double latDeg, double rightPx) const {
        return takePlan({at(latDeg).x + rightPx, at(latDeg).y}, data_, view(), 24);
    }

    DayMap map_{PageId::NorthUp, 800, 600, 100};
    CockpitData data_;
};

TEST_F(PlanBandTest, AFingerTakesWhatLiesAheadOfTheAircraft) {
    const struct {
        double latDeg, rightPx;
        const char* taken;
    } cases[] = {
        {49, 20, "f.W2"}, {50, -20, "f.W3"},                                 // waypoints
        {49.5, 10, "to f.W3"}, {48.6, 10, "to f.W2"}, {48.2, 0, "to f.W2"},  // legs, the flown one whole
        {49.5, 14, ""}, {49, 26, ""},                                        // too far off
        {48, 10, "to f.W2"}, {47.5, 0, ""}, {47, 0, ""},                     // what is behind
    };
    for (const auto& [latDeg, rightPx, taken] : cases) {
        const auto band = take(latDeg, rightPx);
        EXPECT_EQ(band ? (band->former ? "" : "to ") + band->key : "", taken) << latDeg << " " << rightPx;
    }
    data_.plan = nullptr;
    EXPECT_FALSE(take(49, 0));
}

TEST_F(PlanBandTest, TheFiguresAreThoseOfTheNewWay) {
    auto leg = take(49.5, 0);
    ASSERT_TRUE(leg);
    leg->at = atDegrees(49.5, 10);
    leg->name = "XFLD";
    EXPECT_EQ(bandLines(*leg, DistanceUnit::NauticalMiles),
        (std::vector<std::string>{"XFLD", "30.0 nm + 30.0 nm", "+0.0 nm   Total 180 nm"}));
    auto flown = take(48.8, 0);
    ASSERT_TRUE(flown);
    flown->at = atDegrees(48.6, 10);
    EXPECT_NEAR(*figuresOf(*flown).toNm, 6, 0.01) << "from the aircraft";
    auto last = take(50, 0);
    ASSERT_TRUE(last);
    last->at = atDegrees(49.5, 10);
    last->name.clear();
    EXPECT_EQ(bandLines(*last, DistanceUnit::NauticalMiles),
        (std::vector<std::string>{"N49°30.00'  E010°00.00'", "30.0 nm", "-30.0 nm   Total 150 nm"}));
    auto middle = take(49, 0);
    ASSERT_TRUE(middle);
    middle->at = atDegrees(49, 11);
    const BandFigures figures = figuresOf(*middle);
    EXPECT_NEAR(*figures.toNm + *figures.fromNm - 90, figures.extraNm, 1e-6);
    EXPECT_GT(figures.extraNm, 20);
}

TEST_F(PlanBandTest, TheBoxStandsClearOfFingerAndAircraft) {
    auto band = take(49, 0);
    ASSERT_TRUE(band);
    const MapContent plain = map_.content(data_);
    const Rect aircraft = aircraftArea(plain.aircraft(), plain.view.textPx);
    for (double x = 0; x <= 800; x += 50)
        for (double y = 0; y <= 600; y += 50) {
            band->at = plain.view.projection.unproject({x, y});
            MapContent content = map_.content(data_);
            content.band = &*band;
            PlanBandLayer layer(content);
            LabelRoom room(content.view.area);
            layer.layOut(map_.canvas.textMeasure(), room);
            const Rect& box = layer.box();
            EXPECT_TRUE(box.x >= 0 && box.y >= 0 && box.right() <= 800 && box.bottom() <= 600);
            EXPECT_FALSE(overlap(box, {x - 30, y - 30, 60, 60}) || overlap(box, aircraft)) << x << " " << y;
        }
    MapContent content = map_.content(data_);
    content.band = &*band;
    EXPECT_NE(map_.paint(content).texts().find("Total"), std::string::npos);
    EXPECT_EQ(map_.paint(data_).texts().find("Total"), std::string::npos);
}

}}  // namespace korvel
