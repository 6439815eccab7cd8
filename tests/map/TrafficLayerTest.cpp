#include <gtest/gtest.h>

#include "geo/Geodesy.h"
#include "map/DayMap.h"
#include "map/layers/TrafficLayer.h"
#include "paint/B612Metrics.h"

namespace korvel { namespace {

TEST(TrafficLayer, ShowsWhereWhitherAndHowHigh) {
    CockpitData data = flying();
    const DayMap map(PageId::NorthUp, 800, 400, 8);
    const auto placed = [&](double x, std::optional<int> aboveFt, int fpm, TrafficLevel level) {
        TrafficView view{.name = "N1",
            .position = map.ground(data, {x, 100}),
            .trackTrueDeg = 90,
            .groundSpeedKt = 60,
            .aboveFt = aboveFt,
            .verticalSpeedFpm = fpm,
            .ageSec = 3,
            .airborne = true,
            .level = level};
        return view;
    };
    TrafficList list{placed(100, -1149, 0, TrafficLevel::Alert), placed(300, 951, 500, TrafficLevel::Far),
        placed(500, std::nullopt, 0, TrafficLevel::Near), placed(3000, 0, 0, TrafficLevel::Near)};
    list.push_back(placed(650, -3000, 900, TrafficLevel::Far));
    list.back().airborne = false;
    data.traffic = std::make_shared<const TrafficList>(list);
    const auto content = map.content(data);
    TrafficLayer layer(content);
    LabelRoom room(content.view.area);
    layer.layOut(B612Metrics(), room);
    ASSERT_EQ(layer.marks().size(), 4U) << "one is out of the view";
    const char* words[] = {"-11", "+10", "", ""};
    const int trends[] = {0, 1, 0, 0};
    for (std::size_t i = 0; i < 4; ++i) {
        const TrafficLayer::Mark& mark = layer.marks()[i];
        EXPECT_EQ(mark.words, words[i]) << i;
        EXPECT_EQ(mark.trend, trends[i]) << i;
        EXPECT_EQ(mark.angleDeg, 90);
        ASSERT_TRUE(mark.minuteAhead);
        EXPECT_NEAR(mark.minuteAhead->to.x - mark.at.x, content.view.projection.pixelsPerNm(), 0.5)
            << "a mile a minute";
    }
    const TrafficView* hit = trafficAt(*data.traffic, content.view.projection, {104, 103}, 30);
    ASSERT_TRUE(hit);
    EXPECT_EQ(hit->aboveFt, -1149);
    EXPECT_EQ(trafficAt(*data.traffic, content.view.projection, {200, 100}, 30), nullptr);
}

TEST(TrafficLayer, AnAlertIsNamedWhereThereIsNoRoom) {
    CockpitData data = flying();
    const DayMap map(PageId::NorthUp, 800, 400, 8);
    TrafficList list;
    for (const TrafficLevel level : {TrafficLevel::Alert, TrafficLevel::Near})
        list.push_back({.name = "N1",
            .position = map.ground(data, {400, 100}),
            .trackTrueDeg = {},
            .groundSpeedKt = {},
            .aboveFt = 200,
            .verticalSpeedFpm = {},
            .ageSec = 0,
            .airborne = true,
            .level = level});
    data.traffic = std::make_shared<const TrafficList>(list);
    const auto content = map.content(data);
    TrafficLayer layer(content);
    LabelRoom room(content.view.area);
    room.taken.reserve(content.view.area);
    layer.layOut(B612Metrics(), room);
    EXPECT_EQ(layer.marks()[0].words, "+02");
    EXPECT_EQ(layer.marks()[1].words, "");
}

}}  // namespace korvel
