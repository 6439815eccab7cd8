#include <gtest/gtest.h>

#include "cockpit/Cockpit.h"
#include "geo/Units.h"
#include "pages/ApproachBox.h"
#include "paint/ColorScheme.h"
#include "paint/MapColorCache.h"
#include "paint/RecordingCanvas.h"
#include "screen/PagePainter.h"

namespace korvel { namespace {

/// Four miles before a runway to the north-east, on the glide path.
CockpitData approaching() {
    CockpitData data = navigating();
    data.trackMagDeg = 45;
    data.trackTrueDeg = 45;
    LandingRunway runway;
    runway.airport = "EDMA";
    runway.id = "05";
    runway.courseTrueDeg = 45;
    runway.thresholdFt = 1500;
    PointAtRadialDistance(data.position->lat, data.position->lon, 4 / kNmPerRadian, 45 * kDegToRad,
        runway.threshold.lat, runway.threshold.lon);
    runway.farEnd = runway.threshold;
    data.approach = {.runway = runway, .toGoNm = 4};
    data.targetAltitudeFt = 2824;
    data.altitudeFt = 2824;
    return data;
}

struct Painted {
    RecordingCanvas canvas{1000, 700};

    explicit Painted(const CockpitData& data, int rangeNm = 15, PageId page = PageId::Map,
        std::optional<GeoPoint> lookAt = std::nullopt) {
        const ColorScheme scheme;
        const MapColorCache colors(scheme);
        MapViewport viewport;
        viewport.layout(page, 1000, 700);
        viewport.setRange(rangeNm);
        PagePainter(colors).paint(
            canvas, page, {.data = data, .viewport = viewport, .upTrueDeg = 45, .lookAt = lookAt});
    }
    bool has(std::string_view text) const { return canvas.findText(text) != nullptr; }
};

TEST(ApproachPicture, MarksTheCenterLineInTheUnitInForceAndAsDenseAsThereIsRoom) {
    const CockpitData data = approaching();
    const Painted near(data, 4);
    const auto* one = near.canvas.findText("1  1868 ft");
    const auto* three = near.canvas.findText("3  2505 ft");
    ASSERT_TRUE(one && three);
    EXPECT_GT(three->area.y, one->area.y + 50) << "the runway lies ahead";
    EXPECT_FALSE(Painted(data, 25).has("1  1868 ft"));
    EXPECT_TRUE(Painted(data, 25).has("10  4734 ft"));
    CockpitData metric = data;
    metric.altUnit = 1;
    metric.distanceUnit = DistanceUnit::Kilometres;
    EXPECT_TRUE(Painted(metric, 4).has("1  525 m")) << "172 ft up a kilometre";
    metric.approach->runway.thresholdFt.reset();
    EXPECT_TRUE(Painted(metric, 4).has("1"));
}

TEST(ApproachPicture, TheGlidePathMovesAsTheAircraftLeavesIt) {
    struct Case {
        double toGoNm;
        int aboveFt;
        double share;
        const char* word;
        const char* feet;
    };
    const Case cases[] = {{4, 0, 0, "ON PATH", ""}, {4, -20, 0.067, "ON PATH", ""}, {4, 149, -0.502, "HIGH", "150 ft"},
        {4, -900, 1, "LOW", "900 ft"}, {0.5, 75, -0.5, "HIGH", "80 ft"}};
    for (const Case& one : cases) {
        CockpitData data = approaching();
        data.approach->toGoNm = one.toGoNm;
        data.altitudeFt = *data.targetAltitudeFt + one.aboveFt;
        ASSERT_TRUE(glideDeviation(data));
        EXPECT_NEAR(glideDeviation(data)->share, one.share, 0.005) << one.aboveFt;
        const Painted page(data, 15, PageId::Hsi);
        EXPECT_TRUE(page.has(one.word));
        EXPECT_TRUE(*one.feet == 0 || page.has(one.feet)) << one.feet;
    }
    CockpitData unknown = approaching();
    unknown.altitudeFt.reset();
    EXPECT_FALSE(glideDeviation(unknown));
    EXPECT_TRUE(Painted(unknown, 15).has("NO PATH"));
}

TEST(ApproachPicture, StandsWhereOneFliesByThePage) {
    const CockpitData data = approaching();
    for (const PageId page : {PageId::Map, PageId::MapHsi, PageId::NorthUp, PageId::Hsi})
        EXPECT_TRUE(Painted(data, 15, page).has("APPR"));
    EXPECT_FALSE(Painted(data, 15, PageId::Map, atDegrees(48, 11)).has("APPR"));
    EXPECT_TRUE(Painted(data, 15, PageId::Hsi).has("RW05"));
}

}}  // namespace korvel
