#include <gtest/gtest.h>

#include "cockpit/Cockpit.h"
#include "config/DataFileSearch.h"
#include "pages/FieldStrip.h"
#include "pages/NavField.h"
#include "pages/TouchBar.h"
#include "paint/ColorScheme.h"
#include "paint/MapColorCache.h"
#include "paint/RecordingCanvas.h"

namespace korvel { namespace {

TEST(NavField, ACorrectedAltitudeSaysSo) {
    CockpitData data;
    data.altimeterOffsetFt = -120;
    EXPECT_EQ(navField(NavFieldId::Altitude).format(data).value, "---");
    data.altitudeFt = 5500;
    EXPECT_EQ(navField(NavFieldId::Altitude).format(data).unit, "ft*");
}

TEST(NavField, FieldsShowTheirValuesOrDashes) {
    const struct {
        std::string_view name;
        NavFieldText knots;
        NavFieldText metric;
    } cases[] = {
        {"GS", {"118", "kt", ""}, {"219", "kph", ""}},
        {"TRK", {"083", "°M", ""}, {"083", "°M", ""}},
        {"BRG", {"091", "°M", ""}, {"091", "°M", ""}},
        {"DIST", {"34.3", "nm", ""}, {"63.4", "km", ""}},
        {"TTG", {"17:22", "min", ""}, {"17:22", "min", ""}},
        {"ETA", {"14:22", "LT", ""}, {"14:22", "LT", ""}},
        {"XTK", {"L1.3", "nm", ""}, {"L2.3", "km", ""}},
        {"DTK", {"089", "°M", ""}, {"089", "°M", ""}},
        {"OFF CRS", {"L2", "°", ""}, {"L2", "°", ""}},
        {"ALT", {"5500", "ft", ""}, {"1676", "m", ""}},
        {"TGT ALT", {"3500", "ft", ""}, {"1067", "m", ""}},
        {"VS", {"+450", "fpm", ""}, {"+2.3", "m/s", ""}},
        {"VS REQ", {"-520", "fpm", ""}, {"-2.7", "m/s", ""}},
        {"WPT", {"EDMA", "", ""}, {"EDMA", "", ""}},
        {"NRST", {"EDMO", "", "225° 12.4 nm"}, {"EDMO", "", "225° 22.9 km"}},
        {"PLAN DIST", {"104", "nm", ""}, {"193", "km", ""}},
        {"PLAN TIME", {"52:50", "min", ""}, {"52:50", "min", ""}},
        {"VAR", {"3.3", "°W", ""}, {"3.3", "°W", ""}},
        {"POS", {"N48°21.22'", "", "E011°47.17'"}, {"N48°21.22'", "", "E011°47.17'"}},
        {"SUNRISE", {"05:13", "LT", ""}, {"05:13", "LT", ""}},
        {"SUNSET", {"21:17", "LT", ""}, {"21:17", "LT", ""}},
        {"UTC", {"12:05", "07", ""}, {"12:05", "07", ""}},
        {"FLT TIME", {"1:02", "h", ""}, {"1:02", "h", ""}},
        {"SAT", {"8", "3D", ""}, {"8", "3D", ""}},
        {"FUEL", {"73", "L", ""}, {"73", "L", ""}},
        {"ENDUR", {"2:54", "h", ""}, {"2:54", "h", ""}},
        {"TIME", {"14:05", "07 LT", ""}, {"14:05", "07 LT", ""}},
    };
    EXPECT_EQ(std::size(cases), navFields().size());
    const CockpitData nothing = lost(20);  // the last position must not show as a value
    CockpitData metric = navigating();
    metric.altUnit = 1;
    metric.distanceUnit = DistanceUnit::Kilometres;
    for (const auto& each : cases) {
        const NavField& field = navField(navFieldsFromText(each.name).front());
        ASSERT_EQ(field.header.english, each.name);
        EXPECT_EQ(field.format(navigating()), each.knots) << field.header.english;
        if (field.id != NavFieldId::Time) {
            EXPECT_EQ(field.format(nothing), (NavFieldText{"---", "", ""})) << field.header.english;
        }
        EXPECT_EQ(field.format(metric), each.metric) << field.header.english;
    }
}

TEST(NavField, ValuesThatMeanNothingAreNotShown) {
    const auto valueOf = [](NavFieldId id, const CockpitData& data) { return navField(id).format(data).value; };
    CockpitData data = navigating();
    data.variationDeg.reset();
    EXPECT_EQ(navField(NavFieldId::Track).format(data).unit, "°T") << "nothing turned it to magnetic";
    data.groundSpeedKt = 4.9;  // taxying
    for (const NavFieldId id : {NavFieldId::TimeToGo, NavFieldId::Eta, NavFieldId::PlanTime})
        EXPECT_EQ(valueOf(id, data), "---");
    data.groundSpeedKt = 5;
    EXPECT_EQ(valueOf(NavFieldId::TimeToGo, data), "6:51");
    data.crossTrackNm = -0.04;
    EXPECT_EQ(valueOf(NavFieldId::CrossTrack, data), "0.0") << "on the course there is no side";
    data.crossTrackNm = -0.06;
    EXPECT_EQ(valueOf(NavFieldId::CrossTrack, data), "R0.1");
    data.verticalSpeedFpm = -4;
    EXPECT_EQ(valueOf(NavFieldId::VerticalSpeed, data), "0");
    data.obsCourseMagDeg = 0.2;
    EXPECT_EQ(valueOf(NavFieldId::DesiredTrack, data), "360");
    data.directLeg = true;
    EXPECT_EQ(valueOf(NavFieldId::PlanDistance, data), "---") << "the plan is not flown";
    data.activeKey.clear();
    EXPECT_EQ(valueOf(NavFieldId::Waypoint, data), "AUGSBURG");
    EXPECT_EQ(navField(NavFieldId::Satellites).format(data).unit, "3D");
    data.fix3D = false;
    EXPECT_EQ(navField(NavFieldId::Satellites).format(data).unit, "") << "the receiver says neither";
    data.fix2D = true;
    EXPECT_EQ(navField(NavFieldId::Satellites).format(data).unit, "2D");
}

TEST(NavField, TheChosenSetSurvivesAnyText) {
    const std::vector<NavFieldId> all(defaultNavFields().begin(), defaultNavFields().end());
    EXPECT_EQ(navFieldsFromText(navFieldsToText(all)), all);
    EXPECT_EQ(navFieldsFromText(""), all);
    EXPECT_EQ(navFieldsFromText(",;,\xff, no field ,"), all);
    EXPECT_EQ(navFieldsFromText(" tgt alt ,GS,,gs,XYZ,wpt"),
        (std::vector{NavFieldId::TargetAltitude, NavFieldId::GroundSpeed, NavFieldId::Waypoint}));
    std::string everything;
    for (const NavField& field : navFields()) everything.append(field.header.english).append(",");
    EXPECT_EQ(navFieldsFromText(everything).size(), kMostNavFields);
}

struct Size {
    double width;
    double height;
    FieldArrangement arrangement;
    std::size_t count;
    double smallestValue;  // type size in pixels
};

constexpr Size kStrips[] = {{800, 62, FieldArrangement::OneRow, 5, 28}, {1280, 92, FieldArrangement::OneRow, 8, 33},
    {480, 124, FieldArrangement::TwoRows, 6, 28}, {640, 124, FieldArrangement::TwoRows, 8, 28},
    {384, 1000, FieldArrangement::Column, 10, 40}, {300, 800, FieldArrangement::Column, 10, 28}};

TEST(FieldStrip, TextsAreLargeAndStayInTheirCells) {
    const ColorScheme scheme;
    const MapColorCache colors(scheme);
    CockpitData widest = navigating();
    widest.groundSpeedKt = 188;
    widest.altitudeFt = 28888;
    widest.distanceNm = 1888;
    widest.crossTrackNm = -188;
    widest.activeName = "A NAME FROM A LONG PLAN";
    widest.activeKey.clear();
    widest.directLeg = true;
    widest.position = atDegrees(-88.8146, -168.8146);
    const std::vector<NavFieldId> rare = navFieldsFromText("GS,WPT,POS,NRST,TGT ALT,VS,PLAN TIME,UTC,SAT,VAR");
    for (const Size& size : kStrips)
        for (const CockpitData& data : {widest, lost(7)})
            for (const std::span<const NavFieldId> chosen : {defaultNavFields(), std::span<const NavFieldId>(rare)}) {
                RecordingCanvas canvas(size.width, size.height);
                const auto fields = FieldStrip::fitting(chosen, size.arrangement, size.width, size.height);
                EXPECT_EQ(fields.size(), size.count) << size.width;
                if (chosen.data() == defaultNavFields().data()) {
                    EXPECT_NE(std::ranges::find(fields, NavFieldId::Altitude), fields.end()) << size.width;
                }
                FieldStrip(colors).paint(canvas, size.arrangement, fields, data);
                const std::vector<Rect> cells = FieldStrip::cells(canvas.area(), size.arrangement, fields.size());
                ASSERT_EQ(cells.size(), fields.size());
                for (const RecordingCanvas::Element& element : canvas.elements()) {
                    if (element.kind != RecordingCanvas::Kind::Text) continue;
                    const Rect& area = element.area;
                    const auto cell =
                        FieldStrip::fieldAt(canvas.area(), size.arrangement, fields.size(), {area.x, area.y});
                    ASSERT_TRUE(cell) << element.text << " at " << size.width;
                    EXPECT_TRUE(cells[*cell].contains({area.right(), area.bottom()}))
                        << element.text << " at " << size.width;
                }
                const auto* speed = canvas.findText(navField(fields[0]).format(data).value);
                ASSERT_NE(speed, nullptr);
                if (chosen.data() == defaultNavFields().data()) {
                    EXPECT_GE(speed->style.font.height, size.smallestValue) << size.width;
                }
            }
}

TEST(FieldStrip, ATapFindsItsField) {
    const RecordingCanvas canvas(640, 124);
    const auto at = [&](Point point) {
        return FieldStrip::fieldAt(canvas.area(), FieldArrangement::TwoRows, 6, point);
    };
    EXPECT_EQ(at({5, 5}), 0U);
    EXPECT_EQ(at({630, 5}), 2U);
    EXPECT_EQ(at({5, 120}), 3U);
    EXPECT_EQ(at({5, 124}), std::nullopt);
}

TEST(FieldStrip, UsesTheColoursOfTheFields) {
    const ColorScheme scheme;
    const MapColorCache colors(scheme);
    RecordingCanvas canvas(800, 62);
    FieldStrip(colors).paint(canvas, FieldArrangement::OneRow, defaultNavFields(), flying());
    EXPECT_EQ(canvas.findText("GS")->style.color, scheme.Color("nav.header"));
    EXPECT_EQ(canvas.findText("118")->style.color, scheme.Color("nav.text"));
    const auto groundAt = [&](Point point) {
        ColorValue color = 0;
        for (const RecordingCanvas::Element& element : canvas.elements())
            if (element.fill && element.area.contains(point)) color = element.fill->color;
        return color;
    };
    EXPECT_EQ(groundAt(canvas.findText("GS")->area.center()), scheme.Color("nav.header.background"));
    EXPECT_EQ(groundAt(canvas.findText("118")->area.center()), scheme.Color("nav.background"));
    EXPECT_EQ(groundAt({0, 40}), scheme.Color("map.background")) << "gaps, no borders";
}

TEST(FieldStrip, OnlyWordsAreBrightAtNight) {
    for (const bool night : {false, true}) {
        ColorScheme scheme;
        if (night) scheme.load(nightSchemeName(), DataFileSearch({}));
        RecordingCanvas canvas(800, 62);
        FieldStrip(MapColorCache(scheme))
            .paint(canvas, FieldArrangement::OneRow, defaultNavFields().first(5), flying());
        double bright = 0;
        for (const RecordingCanvas::Element& element : canvas.elements())
            if (element.area.height < 40 && element.fill &&
                element.fill->color == scheme.Color("nav.header.background"))
                bright += element.area.width;
        EXPECT_EQ(bright > 700, !night) << bright;
        EXPECT_GT(bright, 100);
        EXPECT_EQ(canvas.findText("GS")->style.color, scheme.Color("nav.header"));
    }
}

TEST(TouchBar, WordsAndStatesCanBeToldApart) {
    const ColorScheme scheme;
    const MapColorCache colors(scheme);
    const std::vector<TouchButton> buttons{{TouchCommand::Menu}, {TouchCommand::Page}, {TouchCommand::DirectTo, false},
        {TouchCommand::Nearest}, {TouchCommand::ZoomOut}, {TouchCommand::ZoomIn, true, true}, {TouchCommand::Plan}};
    for (const double width : {320.0, 800.0, 2560.0}) {
        RecordingCanvas canvas(width, 48);
        TouchBar(colors).paint(canvas, buttons);
        const std::vector<Rect> cells = gridCells({0, 0, width, 48}, buttons.size(), 1);
        for (std::size_t i = 0; i < buttons.size(); ++i) {
            const auto* word = canvas.findText(touchWord(buttons[i].command));
            ASSERT_NE(word, nullptr);
            EXPECT_TRUE(cells[i].contains({word->area.x, word->area.y})) << word->text;
            EXPECT_TRUE(cells[i].contains({word->area.right(), word->area.bottom()})) << word->text << " at " << width;
        }
        const auto inkOf = [&](TouchCommand command) { return canvas.findText(touchWord(command))->style.color; };
        EXPECT_EQ(inkOf(TouchCommand::Page), scheme.Color("nav.text"));
        EXPECT_EQ(inkOf(TouchCommand::ZoomIn), scheme.Color("nav.header"));
        EXPECT_NE(inkOf(TouchCommand::DirectTo), scheme.Color("nav.text"));
        EXPECT_NE(inkOf(TouchCommand::DirectTo), scheme.Color("nav.background"));
    }
}

}}  // namespace korvel
