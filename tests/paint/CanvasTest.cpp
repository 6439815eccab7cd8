#include <array>

#include <gtest/gtest.h>

#include "base/Utf8.h"
#include "paint/AreaCanvas.h"
#include "paint/B612Metrics.h"
#include "paint/RecordingCanvas.h"
#include "paint/SvgCanvas.h"
#include "paint/TextBox.h"
#include "paint/TextLine.h"

namespace korvel { namespace {

constexpr Pen kPen{Rgb(255, 0, 16), 1.5, PenStyle::Solid};

// What one drawing adds to an empty document.
template <typename Draw>
std::string svgOf(Draw&& draw) {
    SvgCanvas canvas(40, 30);
    const std::string empty = canvas.document();
    draw(canvas);
    const std::string drawn = canvas.document();
    const std::size_t head = empty.find("</svg>");
    return drawn.substr(head, drawn.size() - empty.size());
}

TEST(SvgCanvas, WritesPlainElementsInPixels) {
    const std::string drawn = svgOf([](Canvas& c) {
        c.line({1, 2}, {3.14159, -0.001}, kPen);
        c.rect({1, 2, 3, 4}, Brush{Rgb(1, 2, 3), 0.25}, Pen{0, 2, PenStyle::Dash});
        c.circle({5, 6}, 7, std::nullopt, kPen);
        c.polygon(std::array{Point{0, 0}, Point{1e6, 0}, Point{0, 2.5}}, Brush{0}, std::nullopt);
    });
    EXPECT_EQ(drawn,
        R"(<line x1="1" y1="2" x2="3.14" y2="0" stroke="#ff0010" stroke-width="1.5"/>
<rect x="1" y="2" width="3" height="4" fill="#010203" fill-opacity="0.25" stroke="#000000" stroke-width="2" )"
        R"(stroke-dasharray="8,4"/>
<circle cx="5" cy="6" r="7" fill="none" stroke="#ff0010" stroke-width="1.5"/>
<polygon points="0,0 1000000,0 0,2.5" fill-rule="evenodd" fill="#000000"/>
)");
}

TEST(SvgCanvas, DrawsNothingForLessThanAShape) {
    EXPECT_EQ(svgOf([](Canvas& c) {
        c.polyline(std::array{Point{1, 1}}, kPen);
        c.polygon(std::array{Point{1, 1}, Point{2, 2}}, Brush{0}, std::nullopt);
        c.text({1, 1}, "", {});
        c.bitmap({0, 0}, {2, 2, {}});  // fewer pixels than it says
    }),
        "");
}

TEST(SvgCanvas, TextsStayTexts) {
    const TextStyle style{.font = {.height = 20, .weight = FontWeight::Bold},
        .color = Rgb(0, 0, 255),
        .alignX = AlignX::Right,
        .alignY = AlignY::Top};
    EXPECT_EQ(svgOf([&](Canvas& c) {
        c.text({30, 10}, "A<&>\n\"°", style);
    }),
        "<text x=\"30\" y=\"25\" font-size=\"20\" text-anchor=\"end\" font-weight=\"bold\" "
        "fill=\"#0000ff\">A&lt;&amp;&gt; \"°</text>\n");
    TextStyle halo = style;
    halo.alignX = AlignX::Center;
    halo.alignY = AlignY::Middle;
    halo.halo = Rgb(255, 255, 255);
    const std::string text = svgOf([&](Canvas& c) { c.text({30, 10}, "N", halo); });
    EXPECT_NE(text.find(" y=\"17.5\""), std::string::npos) << text;
    EXPECT_NE(text.find("text-anchor=\"middle\""), std::string::npos) << text;
    EXPECT_NE(text.find("paint-order=\"stroke\""), std::string::npos) << text;
    EXPECT_NE(text.find("stroke=\"#ffffff\" stroke-width=\"2\""), std::string::npos) << text;
}

TEST(SvgCanvas, ABitmapBecomesRunsOfEqualPixels) {
    // Premultiplied half red, twice; then nothing and opaque blue.
    const std::vector<std::uint32_t> pixels{0x80800000, 0x80800000, 0x00000000, 0xFF0000FF};
    EXPECT_EQ(svgOf([&](Canvas& c) {
        c.bitmap({3, 4}, {2, 2, pixels});
    }),
        "<rect x=\"3\" y=\"4\" width=\"2\" height=\"1\" fill=\"#ff0000\" "
        "fill-opacity=\"0.5\"/>\n"
        "<rect x=\"4\" y=\"5\" width=\"1\" height=\"1\" fill=\"#0000ff\"/>\n");
}

TEST(B612Metrics, WidthsAreThoseOfTheTypeface) {
    const std::tuple<std::string_view, bool, double> cases[] = {
        {"", false, 0}, {"0", false, 65}, {"0123456789", false, 650}, {"I", false, 30}, {"W", false, 95},
        {"iW", true, 130}, {"48°", false, 160}, {"→", false, 75}, {"ü", false, 60}, {"漢", false, 65},
        {"\xC2", false, 65},       // cut off in the middle of a letter
        {"\xFF\x80", false, 120},  // a byte that is no UTF-8 stands for itself
    };
    for (const auto& [text, monospaced, width] : cases)
        EXPECT_NEAR(B612Metrics().measure(text, {.height = 100, .monospaced = monospaced}).width, width, 1e-9) << text;
    EXPECT_NEAR(B612Metrics().measure("x", {.height = 100}).capHeight, 75, 1e-9);
}

TEST(TextBox, StandsWhereTheTextIsDrawn) {
    const TextExtent extent{40, 15, 5};
    TextStyle style;
    EXPECT_EQ(textBox({100, 100}, extent, style), (Rect{100, 85, 40, 20}));
    style.alignX = AlignX::Center;
    style.alignY = AlignY::Top;
    EXPECT_EQ(textBox({100, 100}, extent, style), (Rect{80, 100, 40, 20}));
    style.alignX = AlignX::Right;
    style.alignY = AlignY::Middle;
    EXPECT_EQ(textBox({100, 100}, extent, style), (Rect{60, 92.5, 40, 20}));
}

TEST(AreaCanvas, MovesEverythingIntoItsArea) {
    RecordingCanvas whole(200, 100);
    AreaCanvas area(whole, {50, 20, 100, 60});
    EXPECT_EQ(area.width(), 100);
    EXPECT_EQ(area.height(), 60);
    const std::vector<Point> points{{0, 0}, {1, 0}, {1, 1}};
    const std::vector<std::uint32_t> pixel{0};
    area.line(points[0], points[1], kPen);
    area.lines(std::array{Segment{points[0], points[1]}}, kPen);
    area.polyline(points, kPen);
    area.polygon(points, Brush{}, std::nullopt);
    area.rect({0, 0, 5, 5}, Brush{}, std::nullopt);
    area.circle({0, 0}, 3, Brush{}, std::nullopt);
    area.text({0, 0}, "N", {});
    area.bitmap({0, 0}, {1, 1, pixel});
    ASSERT_EQ(whole.elements().size(), 8U);
    for (const RecordingCanvas::Element& element : whole.elements())
        EXPECT_EQ(element.points.front(), (Point{50, 20})) << static_cast<int>(element.kind);
    EXPECT_EQ(whole.elements()[3].points[2], (Point{51, 21}));
}

TEST(TextLine, ATextIsCutBetweenLettersOfAnyLanguage) {
    const RecordingCanvas canvas(100, 100);
    const TextMeasure& texts = canvas.textMeasure();
    const Font font{.height = 20};
    for (const std::string whole : {"Augsburg", "Αθήνα", "ÄÖÜÄÖÜ", "東京国際空港"}) {
        EXPECT_EQ(fittingText(texts, whole, font, 1000), whole);
        EXPECT_EQ(fittingText(texts, whole, font, 1), "");
        const double room = texts.measure(whole, font).width * 0.8;
        const std::string cut = fittingText(texts, whole, font, room);
        ASSERT_TRUE(cut.ends_with("…")) << whole;
        const std::string kept = cut.substr(0, cut.size() - 3);
        EXPECT_TRUE(isUtf8(kept) && whole.starts_with(kept) && kept.size() >= 2) << cut;
        EXPECT_LE(texts.measure(cut, font).width, room);
    }
}

}}  // namespace korvel
