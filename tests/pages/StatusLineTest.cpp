#include <algorithm>

#include <gtest/gtest.h>

#include "config/DataFileSearch.h"
#include "pages/StatusLine.h"
#include "paint/B612Metrics.h"
#include "paint/ColorScheme.h"
#include "paint/MapColorCache.h"
#include "paint/RecordingCanvas.h"

namespace korvel { namespace {

const std::vector<Mode> kAll = {{"SIM", "SIM", AlarmUrgency::Caution}, {"NO GPS", "NO GPS", AlarmUrgency::Warning},
    {"D→", "D→", {}}, {"OBS 340°", "OBS 340°", {}}, {"REC", "REC", {}},
    {"CHARTS EXPIRED 2013-05-02", "CHARTS EXPIRED", AlarmUrgency::Caution}};

TEST(StatusLine, EveryMarkFitsAtAnyWidth) {
    const B612Metrics letters;
    for (const auto& [width, last] : {std::pair{1280.0, "CHARTS EXPIRED 2013-05-02"},
             {800.0, "CHARTS EXPIRED 2013-05-02"}, {480.0, "CHARTS EXPIRED"}, {320.0, "CHARTS EXPIRED"}}) {
        const StatusLine line(letters, width, 22, kAll);
        ASSERT_EQ(line.marks.size(), kAll.size());
        EXPECT_EQ(line.marks.back().words, last) << width;
        double end = 0;
        for (const StatusMark& mark : line.marks) {
            EXPECT_GT(mark.area.x, end);
            EXPECT_GE(mark.area.width, letters.measure(mark.words, line.font).width);
            end = mark.area.right();
        }
        EXPECT_LE(end, width);
        EXPECT_GE(line.font.height, width < 480 ? 9 : 14) << width;
    }
    EXPECT_TRUE(StatusLine(letters, 800, 22, {}).marks.empty());
}

TEST(StatusLine, WordsCarryTheMeaningAndColoursTheUrgency) {
    for (const char* name : {"<Default>", "<Default2>", "<Night-Flight>"}) {
        ColorScheme scheme;
        scheme.load(name, DataFileSearch({}));
        const MapColorCache colors(scheme);
        RecordingCanvas canvas(800, 22);
        paintStatusLine(canvas, kAll, colors);
        const auto inkOf = [&](std::string_view words) { return canvas.findText(words)->style.color; };
        EXPECT_EQ(inkOf("NO GPS"), scheme.Color("map.obs.danger"));
        for (const char* words : {"SIM", "REC"}) EXPECT_EQ(inkOf(words), scheme.Color("hsi.numeral")) << name;
        const auto framed = [&](const char* key) {
            return std::ranges::count_if(canvas.elements(), [&](const RecordingCanvas::Element& element) {
                return element.kind == RecordingCanvas::Kind::Rect && element.fill &&
                       element.fill->color == scheme.Color(key);
            });
        };
        EXPECT_EQ(framed("geo.topo.warning"), 2) << name;
    }
}

}}  // namespace korvel
