#include <gtest/gtest.h>

#include "cockpit/Cockpit.h"
#include "pages/FlightPlanPage.h"
#include "pages/PlanFigures.h"
#include "paint/ColorScheme.h"
#include "paint/MapColorCache.h"
#include "paint/RecordingCanvas.h"

namespace korvel { namespace {

TEST(FlightPlanPage, Figures) {
    CockpitData data = flying();
    EXPECT_TRUE(planFigures(data).empty());
    data.plan = planOf(4, std::nullopt);
    data.groundSpeedKt = 60;
    // On the ground: from the first entry, without an arrival.
    EXPECT_EQ(planFigures(data)[0], PlanFigures{});
    EXPECT_EQ(planFigures(data)[3], (PlanFigures{358, 30, 90, 0.5, std::nullopt}));
    data.plan = planOf(4, 2);
    data.activeWaypoint = data.plan->rows[2].position;
    data.distanceNm = 12;
    data.desiredTrackMagDeg = 1;
    EXPECT_EQ(planFigures(data)[1], (PlanFigures{358, {}, {}, {}, {}}));
    EXPECT_EQ(planFigures(data)[2], (PlanFigures{1, 12, 12, 0.2, 0.2}));
    EXPECT_EQ(planFigures(data)[3], (PlanFigures{358, 30, 42, 0.5, 0.7}));
    data.groundSpeedKt.reset();
    EXPECT_EQ(planFigures(data)[3], (PlanFigures{358, 30, 42, {}, {}}));
    // Flown to something else: the plan's own distances.
    for (const auto& [airport, legNm] : {std::pair{"", 12.0}, {"a.EDMA", 30.0}}) {
        data.approach.emplace().runway.airportKey = airport;
        EXPECT_EQ(planFigures(data)[2].legNm, legNm) << "a runway of the waypoint, and of another";
    }
    data.approach.reset();
    data.activeWaypoint = atDegrees(0, 0);
    EXPECT_EQ(planFigures(data)[2].legNm, 30);

    EXPECT_EQ(durationText(1.999), "2:00");
    EXPECT_EQ(durationText(100), "---");
    EXPECT_EQ(arrivalText(10.0, flying().now), "00:05");
    EXPECT_EQ(arrivalText(std::nullopt, flying().now), "---");
    EXPECT_EQ(arrivalText(0, {.hour = 14, .minute = 5, .second = 30}), "14:06");
}

TEST(FlightPlanPage, FuelIsTheAircraftsAndItsWordSaysWhenItIsShort) {
    const ColorScheme scheme;
    const MapColorCache colors(scheme);
    CockpitData data = flying();
    data.plan = planOf(4, 2);
    data.activeWaypoint = data.plan->rows[2].position;
    data.distanceNm = 12;
    data.groundSpeedKt = 60;
    data.aircraft.emplace();  // 100 kt, 25 an hour, reserve 12.5
    EXPECT_EQ(planFigures(data)[3].fuelLeft, std::nullopt);
    data.fuelLeft = 28.2;
    EXPECT_EQ(planFigures(data)[1].fuelLeft, std::nullopt) << "it lies behind";
    EXPECT_NEAR(*planFigures(data)[2].fuelLeft, 23.2, 1e-9);
    EXPECT_NEAR(*planFigures(data)[3].fuelLeft, 10.7, 1e-9);
    RecordingCanvas canvas(800, 370);
    // In a frame of the colour of cautions.
    const auto isFramed = [&](std::string_view words) {
        canvas.clear();
        paintFlightPlanPage(canvas, data, {}, colors);
        const auto* found = canvas.findText(words);
        return found != nullptr && std::ranges::any_of(canvas.elements(), [&](const RecordingCanvas::Element& each) {
            return each.pen && each.pen->color == colors[ColorKey::GeoWarning] &&
                   each.area.contains(found->area.center());
        });
    };
    EXPECT_FALSE(isFramed("23"));
    EXPECT_TRUE(isFramed("RES 11") && isFramed("Fuel 11 L BELOW RESERVE"));
    data.fuelLeft = 17;
    EXPECT_TRUE(isFramed("EMPTY"));
    // Standing: as planned, to the north into the wind and at its altitudes.
    data.groundSpeedKt = 0;
    EXPECT_NEAR(*planFigures(data)[3].legHours, 0.3, 1e-6);
    data.wind = WindView{.wind = {0, 25}, .entered = true};
    EXPECT_NEAR(*planFigures(data)[3].legHours, 0.4, 1e-6);
    auto climbing = planOf(4, std::nullopt);
    climbing->rows[1].altitudeFt = 6500;
    climbing->rows[3].altitudeFt = 5500;
    data.plan = climbing;
    data.altitudeFt = 1500;
    data.wind.reset();
    EXPECT_NEAR(*planFigures(data)[1].legHours, 10 / 60.0 + (30 - 12.5) / 100, 1e-6);
    EXPECT_NEAR(*planFigures(data)[3].legHours, 0.3, 1e-6) << "it descends as fast as it flies";
}

TEST(FlightPlanPage, RowsAndPictures) {
    const ColorScheme scheme;
    const MapColorCache colors(scheme);
    for (const auto& [width, height] : {std::pair{480., 400.}, {640., 300.}, {800., 370.}, {1280., 660.}}) {
        CockpitData data = flying();
        RecordingCanvas canvas(width, height);
        paintFlightPlanPage(canvas, data, {}, colors);
        EXPECT_EQ(canvas.texts(), "No flight plan: tap here or press F to enter one\n");
        data.plan = planOf(30, 20);
        data.activeWaypoint = data.plan->rows[20].position;
        data.distanceNm = 1234;
        const FlightPlanRows rows(width, height, 30);
        for (const std::size_t first : {std::size_t{0}, rows.lastFirst()})
            for (std::size_t i = first; i < first + rows.visible(); ++i) {
                const Rect area = rows.row(i, first);
                EXPECT_GE(area.height, 36);
                EXPECT_EQ(rows.rowAt(area.center(), first), i);
            }
        EXPECT_EQ(rows.rowAt(rows.header().center(), 0), std::nullopt);
        EXPECT_EQ(rows.rowAt(rows.totals().center(), 0), std::nullopt);
        canvas.clear();
        paintFlightPlanPage(canvas, data, {}, colors);
        EXPECT_NE(canvas.findText("W19"), nullptr) << "the one before the active row";
        EXPECT_NE(canvas.findText("W20"), nullptr);
        EXPECT_EQ(canvas.findText("W18"), nullptr);
        canvas.clear();
        paintFlightPlanPage(canvas, data, {.firstRow = 99}, colors);
        EXPECT_NE(canvas.findText("W29"), nullptr);
        double end = 0;
        for (const auto& element : canvas.elements()) {
            if (element.kind == RecordingCanvas::Kind::Text) {
                EXPECT_TRUE(element.area.x >= 0 && element.area.right() <= width) << element.text;
                if (!rows.totals().contains(element.area.center())) continue;
                EXPECT_GT(element.area.x, end) << element.text;
                end = element.area.right();
            }
        }
        EXPECT_GT(end, width * 0.9);
    }
}

TEST(FlightPlanPage, ARowInHandStandsUnderTheFingerAndTheOthersMakeRoom) {
    const ColorScheme scheme;
    const MapColorCache colors(scheme);
    CockpitData data = flying();
    data.plan = planOf(4, std::nullopt);
    const FlightPlanRows rows(800, 370, 4);
    const struct {
        LiftedRow lifted;
        std::array<const char*, 4> order;  // from the top; the row in hand is none of them
        const char* total;
    } cases[] = {{{0, 2, 222}, {"W1", "W2", nullptr, "W3"}, "Total 180 nm"},
        {{3, 0, 111}, {nullptr, "W0", "W1", "W2"}, "Total 150 nm"},
        {{1, 1, 150}, {"W0", nullptr, "W2", "W3"}, "Total 90 nm"}};
    for (const auto& each : cases) {
        RecordingCanvas canvas(800, 370);
        paintFlightPlanPage(canvas, data, {.firstRow = 0, .lifted = each.lifted}, colors);
        for (std::size_t place = 0; place < 4; ++place)
            if (each.order.at(place) != nullptr) {
                const auto* text = canvas.findText(each.order.at(place));
                ASSERT_NE(text, nullptr);
                EXPECT_NEAR(text->area.center().y, rows.row(place, 0).center().y, 4) << text->text;
            }
        const auto* carried = canvas.findText(data.plan->rows[each.lifted.row].ident);
        ASSERT_NE(carried, nullptr);
        EXPECT_NEAR(carried->area.center().y, each.lifted.y, 4);
        EXPECT_NE(canvas.findText(each.total), nullptr) << canvas.texts();
        EXPECT_EQ(canvas.findText("358°"), nullptr) << "legs that may never be flown";
    }
}

}}  // namespace korvel
