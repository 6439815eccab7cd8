#include <gtest/gtest.h>

#include "cockpit/Cockpit.h"
#include "pages/ApproachBox.h"
#include "paint/ColorScheme.h"
#include "paint/MapColorCache.h"
#include "paint/RecordingCanvas.h"

namespace korvel { namespace {

TEST(ApproachBox, TheGlidePathMovesAsTheAircraftLeavesIt) {
    const struct {
        double toGoNm;
        std::optional<int> aboveFt;
        double share;
        const char *word, *feet;
    } cases[] = {{4, 0, 0, "ON PATH", ""}, {4, -20, 0.067, "ON PATH", ""}, {4, 149, -0.502, "HIGH", "150 ft"},
        {4, -900, 1, "LOW", "900 ft"}, {0.5, 75, -0.5, "HIGH", "80 ft"}, {4, std::nullopt, 0, "NO PATH", ""}};
    const ColorScheme scheme;
    const MapColorCache colors(scheme);
    for (const auto& one : cases) {
        CockpitData data = approaching();
        data.approach->toGoNm = one.toGoNm;
        data.altitudeFt.reset();
        if (one.aboveFt) data.altitudeFt = *data.targetAltitudeFt + *one.aboveFt;
        const auto deviation = glideDeviation(data);
        EXPECT_EQ(deviation.has_value(), one.aboveFt.has_value());
        EXPECT_NEAR(deviation.value_or(GlideDeviation{}).share, one.share, 0.005) << one.feet;
        RecordingCanvas canvas(1000, 700);
        paintApproachBox(canvas, approachBox(1000, 700), data, colors);
        EXPECT_TRUE(canvas.findText(one.word)) << one.word;
        EXPECT_TRUE(*one.feet == 0 || canvas.findText(one.feet)) << one.feet;
    }
}

}}  // namespace korvel
