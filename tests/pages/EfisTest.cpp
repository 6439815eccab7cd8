#include <gtest/gtest.h>

#include "cockpit/Cockpit.h"
#include "pages/EfisGuidance.h"
#include "pages/EfisPage.h"
#include "pages/EfisTape.h"
#include "paint/ColorScheme.h"
#include "paint/MapColorCache.h"
#include "paint/RecordingCanvas.h"

namespace korvel { namespace {

TEST(EfisPage, TheWorldTurnsAgainstTheAircraft) {
    const EfisLayout layout = layOutEfis(800, 374);
    const auto horizon = [&](double bank, double pitch, double right) {
        const Point point = worldPoint(layout, bank, pitch, right, 0);
        return Point{point.x - layout.center.x, point.y - layout.center.y};
    };
    EXPECT_LT(horizon(20, 0, 100).y, -30) << "right bank: the horizon's right end rises";
    EXPECT_GT(horizon(-20, 0, 100).y, 30);
    EXPECT_NEAR(horizon(0, 5, 0).y, 5 * layout.pixelsPerDeg, 1e-9) << "nose up: it sinks";
}

TEST(EfisGuidance, MarksStandWhereTheWayLies) {
    const ColorScheme scheme;
    const MapColorCache colors(scheme);
    const EfisLayout layout = layOutEfis(800, 374);
    const auto marks = [&](const CockpitData& data) {
        RecordingCanvas canvas(800, 374);
        paintEfisGuidance(canvas, data, layout, colors);
        std::vector<Point> found;
        for (const auto& element : canvas.elements())
            if (element.kind == RecordingCanvas::Kind::Polygon) found.push_back(element.area.center());
        const auto* words = canvas.findText(data.approach ? "RW05   2824 ft" : "EDMA   3500 ft");
        EXPECT_EQ(words == nullptr, !data.distanceNm);
        return found;
    };
    CockpitData data = navigating();
    const auto level = marks(data);
    ASSERT_EQ(level.size(), 2U);
    EXPECT_NEAR(level[0].x, layout.center.x + 6.5 * layout.textPx * 1.26 / 5, 1) << "left of course: it lies right";
    EXPECT_GT(level[1].y, layout.center.y) << "2000 ft lower";
    EXPECT_LE(level[1].y, layout.altitude.bottom());
    data.altitudeFt = 3400;
    EXPECT_NEAR(marks(data)[1].y, layout.center.y - layout.altitude.height / 9, 1);

    data = approaching();
    data.crossTrackNm = -9;
    data.fullScaleNm = 1.25;
    data.altitudeFt = *data.targetAltitudeFt + 150;
    const auto high = marks(data);
    ASSERT_EQ(high.size(), 2U) << "the glide path instead of the altitude";
    EXPECT_NEAR(high[0].x, layout.center.x - 6.5 * layout.textPx, 1) << "never off its scale";
    EXPECT_GT(high[1].y, layout.center.y + layout.textPx) << "the path lies below";
    EXPECT_TRUE(marks(lost(10)).empty());
}

TEST(EfisTape, MarksSurroundTheValue) {
    EfisTape tape;
    tape.area = {0, 0, 80, 300};
    tape.value = 12;
    tape.visible = 60;
    tape.markStep = 10;
    tape.labelStep = 20;
    tape.fromZero = true;
    const auto marks = tape.marks();
    ASSERT_EQ(marks.size(), 5U);
    EXPECT_EQ(marks[0].value, 0);
    EXPECT_NEAR(marks[0].offset, -60, 1e-9);
    EXPECT_TRUE(marks[2].labelled && !marks[1].labelled);
    tape.fromZero = false;
    tape.kind = EfisTape::Kind::Heading;
    tape.area = {0, 0, 300, 40};
    EXPECT_EQ(tape.marks().front().value, 350) << "on beyond north";
    tape.value = 1e300;
    EXPECT_TRUE(tape.marks().empty());
}

}}  // namespace korvel
