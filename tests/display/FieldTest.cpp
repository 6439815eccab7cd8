#include <gtest/gtest.h>

#include "Cockpit.h"
#include "display/ColorScheme.h"
#include "display/FieldStrip.h"
#include "display/GeoText.h"
#include "display/MapColorCache.h"
#include "display/NavField.h"
#include "display/RecordingCanvas.h"
#include "display/TouchBar.h"
#include "nav/Units.h"

namespace korvel { namespace {

class Units : public testing::Test {
 protected:
    ~Units() override { SetDistanceUnit(0); }
};

TEST(GeoText, CoordinatesCarryInsteadOfShowingSixtyMinutes) {
    EXPECT_EQ(latitudeText(48, 0), "N48°00'");
    EXPECT_EQ(latitudeText(-0.5, 0), "S00°30'");
    EXPECT_EQ(latitudeText(48.35366, 2), "N48°21.22'");
    EXPECT_EQ(latitudeText(47.99999999, 2), "N48°00.00'");
    EXPECT_EQ(latitudeText(89.9999, 0), "N90°00'");
    EXPECT_EQ(longitudeText(8.5, 0), "E008°30'");
    EXPECT_EQ(longitudeText(-123.755, 1), "W123°45.3'");
    EXPECT_EQ(longitudeText(180, 0), "E180°00'");
    EXPECT_EQ(longitudeText(-180, 0), "E180°00'");
    EXPECT_EQ(longitudeText(181, 0), "W179°00'");
    EXPECT_EQ(longitudeText(-350, 0), "E010°00'");
}

TEST_F(Units, DistancesAreNeverRoundedToAWrongNumber) {
    struct Case {
        int unit;
        double nm;
        std::string_view text;
    };
    const Case cases[] = {{0, 65, "65 nm"}, {0, 32.5, "32.5 nm"}, {0, 12.5, "12.5 nm"}, {0, 0.5, "0.5 nm"},
        {0, 250, "250 nm"}, {1, 65, "74.8 mi"}, {1, 100, "115 mi"}, {2, 1, "1.9 km"}, {2, 50 / 1.852, "50 km"},
        {9, 99.96, "100 nm"}};
    for (const Case& each : cases) {
        SetDistanceUnit(each.unit);
        EXPECT_EQ(distanceText(each.nm), each.text);
    }
}

TEST(GeoText, CoursesAndAges) {
    EXPECT_EQ(courseText(83.4), "083");
    EXPECT_EQ(courseText(0.2), "360");
    EXPECT_EQ(courseText(359.7), "360");
    EXPECT_EQ(courseText(-1), "359");
    EXPECT_EQ(ageText(12), "12 s");
    EXPECT_EQ(ageText(59), "59 s");
    EXPECT_EQ(ageText(125), "2 min 05 s");
    EXPECT_EQ(ageText(3720), "1 h 02 min");
}

TEST_F(Units, FieldsShowTheirValuesOrDashes) {
    struct Case {
        NavFieldId id;
        NavFieldText knots;
        NavFieldText metric;
    };
    const Case cases[] = {
        {NavFieldId::GroundSpeed, {"118", "kt", ""}, {"219", "kph", ""}},
        {NavFieldId::Track, {"083", "°M", ""}, {"083", "°M", ""}},
        {NavFieldId::Altitude, {"5500", "ft", ""}, {"1676", "m", ""}},
        {NavFieldId::Position, {"N48°21.22'", "", "E011°47.17'"}, {"N48°21.22'", "", "E011°47.17'"}},
        {NavFieldId::Time, {"14:05", "07", ""}, {"14:05", "07", ""}},
    };
    CockpitData nothing = lost(20);  // the last position must not show as a value
    CockpitData metric = flying();
    metric.altUnit = 1;
    for (const Case& each : cases) {
        const NavField& field = navField(each.id);
        SetDistanceUnit(0);
        EXPECT_EQ(field.format(flying()), each.knots) << field.header;
        if (each.id != NavFieldId::Time) {
            EXPECT_EQ(field.format(nothing), (NavFieldText{"---", "", ""})) << field.header;
        }
        SetDistanceUnit(2);
        EXPECT_EQ(field.format(metric), each.metric) << field.header;
    }
}

struct Size {
    double width;
    double height;
    FieldArrangement arrangement;
    double smallestValue;  // type size in pixels
};

constexpr Size kStrips[] = {{800, 62, FieldArrangement::OneRow, 28}, {1280, 92, FieldArrangement::OneRow, 44},
    {480, 124, FieldArrangement::TwoRows, 28}, {640, 124, FieldArrangement::TwoRows, 32},
    {384, 1000, FieldArrangement::Column, 40}, {300, 800, FieldArrangement::Column, 28}};

TEST(FieldStrip, TextsAreLargeAndStayInTheirCells) {
    const ColorScheme scheme;
    const MapColorCache colors(scheme);
    CockpitData widest = flying();
    widest.groundSpeedKt = 188;
    widest.altitudeFt = 28888;
    widest.position = atDegrees(-88.8146, -168.8146);
    for (const Size& size : kStrips)
        for (const CockpitData& data : {widest, lost(7)}) {
            RecordingCanvas canvas(size.width, size.height);
            FieldStrip(colors).paint(canvas, size.arrangement, defaultNavFields(), data);
            const std::vector<Rect> cells = FieldStrip::cells(canvas, size.arrangement, defaultNavFields());
            ASSERT_EQ(cells.size(), defaultNavFields().size());
            for (const RecordingCanvas::Element& element : canvas.elements()) {
                if (element.kind != RecordingCanvas::Kind::Text) continue;
                int holders = 0;
                for (const Rect& cell : cells)
                    holders += cell.contains({element.area.x, element.area.y}) &&
                                       cell.contains({element.area.right(), element.area.bottom()})
                                   ? 1
                                   : 0;
                EXPECT_EQ(holders, 1) << element.text << " at " << size.width;
            }
            const auto* time = canvas.findText("14:05");
            ASSERT_NE(time, nullptr);
            EXPECT_GE(time->style.font.height, size.smallestValue) << size.width;
        }
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
    EXPECT_EQ(groundAt({0, 40}), scheme.Color("nav.border"));
}

TEST(TouchBar, WordsAndStatesCanBeToldApart) {
    const ColorScheme scheme;
    const MapColorCache colors(scheme);
    const std::vector<TouchButton> buttons{{TouchCommand::Page}, {TouchCommand::DirectTo, false},
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
