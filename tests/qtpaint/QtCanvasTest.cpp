#include <algorithm>
#include <array>
#include <cmath>

#include <QFontInfo>
#include <QImage>
#include <QPainter>
#include <gtest/gtest.h>

#include "qtpaint/QtCanvas.h"

namespace korvel { namespace {

constexpr ColorValue kRed = Rgb(255, 0, 0);
constexpr ColorValue kWhite = Rgb(255, 255, 255);

/// A black raster of 200 by 100 device-independent pixels.
struct Sheet {
    explicit Sheet(double ratio = 1)
        : image(static_cast<int>(200 * ratio), static_cast<int>(100 * ratio), QImage::Format_RGB32) {
        image.setDevicePixelRatio(ratio);
        image.fill(Qt::black);
    }

    template <class Draw>
    void draw(const Rect& area, Draw&& drawOn) {
        QPainter painter(&image);
        QtCanvas canvas(painter, labels, area);
        drawOn(canvas);
    }

    /// The smallest rectangle, in device pixels, around everything that is not black.
    QRect inked() const {
        QRect around;
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                if (image.pixelColor(x, y) != Qt::black) around = around.united(QRect(x, y, 1, 1));
        return around;
    }

    QImage image;
    DisplayFonts fonts{QString()};
    LabelCache labels{fonts};
};

constexpr Rect kWholeSheet{0, 0, 200, 100};

TEST(DisplayFonts, BringsItsOwnFacesWithTabularDigits) {
    DisplayFonts fonts(QStringLiteral("No Such Family"));
    EXPECT_EQ(fonts.family(), "Korvel B612");
    for (const bool monospaced : {false, true})
        for (const FontWeight weight : {FontWeight::Regular, FontWeight::Bold}) {
            const FontFace& face = fonts.face({40, weight, monospaced});
            EXPECT_EQ(QFontInfo(face.font).exactMatch(), true);
            EXPECT_EQ(QFontInfo(face.font).bold(), weight == FontWeight::Bold);
            for (const char* digit : {"1", "4", "7"}) EXPECT_DOUBLE_EQ(face.advance(digit), face.advance("0")) << digit;
            EXPECT_EQ(face.advance("i") == face.advance("M"), monospaced);
        }
}

TEST(DisplayFonts, HaveEverySignThatPagesUse) {
    DisplayFonts fonts{QString()};
    const QFontMetricsF& metrics = fonts.face({20}).metrics;
    for (const QChar sign : QStringLiteral("°′″−…·–→←↑↓"))
        EXPECT_TRUE(metrics.inFont(sign)) << static_cast<int>(sign.unicode());
}

TEST(QtCanvas, MeasuresWhatItDraws) {
    for (const double ratio : {1.0, 1.5, 2.0}) {
        Sheet sheet(ratio);
        TextExtent extent;
        sheet.draw(kWholeSheet, [&](Canvas& canvas) {
            extent = canvas.textMeasure().measure("HEH", {30});
            canvas.text({100, 50}, "HEH", {.font = {30}, .color = kWhite, .alignX = AlignX::Right});
        });
        const QRect ink = sheet.inked();
        SCOPED_TRACE(ratio);
        EXPECT_NEAR(ink.bottom() + 1, 50 * ratio, 1);
        EXPECT_NEAR(ink.height(), extent.capHeight * ratio, 2);
        // The sides of the outer letters are the font's own margin.
        EXPECT_NEAR(ink.left(), (100 - extent.width) * ratio, 4 * ratio);
        EXPECT_NEAR(ink.right(), 100 * ratio, 4 * ratio);
    }
}

TEST(QtCanvas, PutsTheAnchorWhereTheAlignmentSays) {
    struct Case {
        AlignX alignX;
        AlignY alignY;
        double left, bottom;  // of the ink, in widths and capital heights from the anchor
    };
    for (const Case& c : {Case{AlignX::Left, AlignY::Baseline, 0, 0}, Case{AlignX::Center, AlignY::Middle, -0.5, 0.5},
             Case{AlignX::Right, AlignY::Top, -1, 1}}) {
        Sheet sheet;
        TextExtent extent;
        sheet.draw({20, 10, 160, 80}, [&](Canvas& canvas) {
            extent = canvas.textMeasure().measure("HH", {24});
            canvas.text({80, 40}, "HH", {.font = {24}, .color = kWhite, .alignX = c.alignX, .alignY = c.alignY});
        });
        EXPECT_NEAR(sheet.inked().left(), 100 + c.left * extent.width, 4);
        EXPECT_NEAR(sheet.inked().bottom() + 1, 50 + c.bottom * extent.capHeight, 1.5);
    }
}

TEST(QtCanvas, HaloIsARimOfOnePixelAndLeavesTheTextItsColor) {
    Sheet plain;
    Sheet rimmed;
    TextStyle style{.font = {40, FontWeight::Bold}, .color = kWhite};
    plain.draw(kWholeSheet, [&](Canvas& canvas) { canvas.text({60, 70}, "I", style); });
    style.halo = kRed;
    rimmed.draw(kWholeSheet, [&](Canvas& canvas) { canvas.text({60, 70}, "I", style); });
    const QRect inner = plain.inked();
    EXPECT_EQ(rimmed.inked(), inner.adjusted(-1, -1, 1, 1));
    EXPECT_EQ(rimmed.image.pixelColor(inner.center()), Qt::white);
    int reddest = 0;
    for (int y = inner.top(); y <= inner.bottom(); ++y) {
        const QColor rim = rimmed.image.pixelColor(inner.left() - 1, y);
        reddest = std::max(reddest, rim.red());
        EXPECT_EQ(rim.green() + rim.blue(), 0);
    }
    EXPECT_GT(reddest, 100);
}

TEST(QtCanvas, DrawsInsideItsAreaOnlyAndGivesThePainterBack) {
    Sheet sheet(2);
    const Rect area{50, 20, 60, 40};
    QPainter painter(&sheet.image);
    {
        QtCanvas canvas(painter, sheet.labels, area);
        EXPECT_EQ(canvas.width(), 60);
        canvas.rect({-500, -500, 2000, 2000}, Brush{kRed}, std::nullopt);
        canvas.circle({0, 0}, 30, Brush{kWhite}, std::nullopt);
    }
    EXPECT_EQ(sheet.inked(), QRect(100, 40, 120, 80));
    EXPECT_EQ(sheet.image.pixelColor(101, 41), Qt::white);
    painter.fillRect(0, 0, 1, 1, Qt::red);
    painter.end();
    EXPECT_EQ(sheet.image.pixelColor(0, 0), Qt::red);
}

TEST(QtCanvas, KeepsEdgesAlongTheAxesCrispAtAnyRatio) {
    for (const double ratio : {1.0, 1.5, 2.0}) {
        Sheet sheet(ratio);
        sheet.draw({10.3, 5.7, 150, 80}, [](Canvas& canvas) {
            canvas.rect({5.2, 5.4, 30, 20}, Brush{kWhite}, std::nullopt);
            canvas.line({5.2, 40.3}, {90, 40.3}, {.color = kWhite, .width = 2});
        });
        for (int y = 0; y < sheet.image.height(); ++y)
            for (int x = 0; x < sheet.image.width(); ++x) {
                const QColor color = sheet.image.pixelColor(x, y);
                ASSERT_TRUE(color == Qt::black || color == Qt::white) << x << ' ' << y;
            }
    }
}

TEST(QtCanvas, CopiesBitmapsPixelByPixelAndRefusesShortOnes) {
    Sheet sheet;
    const std::array<std::uint32_t, 4> pixels = {0xFFFF0000, 0xFF00FF00, 0x00000000, 0xFF0000FF};
    sheet.draw({10, 10, 50, 50}, [&](Canvas& canvas) {
        canvas.bitmap({5, 5}, {2, 2, pixels});
        canvas.bitmap({20, 20}, {2, 3, pixels});
    });
    EXPECT_EQ(sheet.image.pixelColor(15, 15), QColor(255, 0, 0));
    EXPECT_EQ(sheet.image.pixelColor(16, 15), QColor(0, 255, 0));
    EXPECT_EQ(sheet.image.pixelColor(16, 16), QColor(0, 0, 255));
    EXPECT_EQ(sheet.inked(), QRect(15, 15, 2, 2));
}

TEST(QtCanvas, DrawsLongWideLinesWithoutGaps) {
    for (const double ratio : {1.0, 2.0}) {
        Sheet sheet(ratio);
        std::vector<Point> points;
        for (int i = 0; i <= 180; ++i) points.push_back({10.0 + i, 50 + 30 * std::sin(i * 0.1)});
        sheet.draw(kWholeSheet, [&](Canvas& canvas) { canvas.polyline(points, {.color = kWhite, .width = 3}); });
        for (const Point& point : points) {
            const QColor color =
                sheet.image.pixelColor(static_cast<int>(point.x * ratio), static_cast<int>(point.y * ratio));
            EXPECT_GT(color.red(), 200) << point.x;
        }
        sheet.image.fill(Qt::black);
        sheet.draw(kWholeSheet,
            [&](Canvas& canvas) { canvas.polyline(points, {.color = kWhite, .width = 3, .style = PenStyle::Dash}); });
        EXPECT_TRUE(std::ranges::any_of(points, [&](Point point) {
            return sheet.image.pixelColor(static_cast<int>(point.x * ratio), static_cast<int>(point.y * ratio)) ==
                   Qt::black;
        }));
    }
}

TEST(QtCanvas, FillsTranslucentAreasLikeSmallOnes) {
    // The large one takes the cheaper way; inside they must look the same.
    for (const double side : {20.0, 98.0}) {
        Sheet sheet;
        const std::array<Point, 4> square = {{{1, 1}, {1 + side, 1}, {1 + side, side}, {1, side}}};
        sheet.draw(kWholeSheet, [&](Canvas& canvas) {
            canvas.polygon(square, Brush{kWhite, 0.5}, Pen{.color = kRed, .width = 2});
        });
        const int middle = static_cast<int>(side / 2);
        EXPECT_NEAR(sheet.image.pixelColor(middle, middle).green(), 128, 1);
        EXPECT_EQ(sheet.image.pixelColor(middle, 1), Qt::red);
        EXPECT_EQ(sheet.image.pixelColor(static_cast<int>(side) + 5, middle), Qt::black);
    }
}

/// Draws a letter on a disc; the letter goes through the cache that is about to keep the stamp.
void drawBadge(Canvas& canvas, Point center, const Stamp& stamp) {
    canvas.circle(center, stamp.radius, Brush{stamp.ink}, std::nullopt);
    canvas.text(center, stamp.variant == 0 ? "A" : "B",
        {.font = {12}, .color = stamp.ground, .alignX = AlignX::Center, .alignY = AlignY::Middle});
}

TEST(QtCanvas, StampsWhatTheDrawerWouldDraw) {
    const Stamp first{.draw = drawBadge, .ink = kRed, .ground = kWhite, .radius = 9.5, .reach = 10.5};
    Stamp second = first;
    second.variant = 1;
    for (const double ratio : {1.0, 2.0}) {
        SCOPED_TRACE(ratio);
        Sheet drawn(ratio);
        drawn.draw({10, 0, 150, 100}, [&](Canvas& canvas) {
            first.draw(canvas, {50, 40}, first);
            second.draw(canvas, {90, 40}, second);
        });
        Sheet stamped(ratio);
        for (int round = 0; round < 2; ++round) {  // made, then kept
            stamped.image.fill(Qt::black);
            stamped.draw({10, 0, 150, 100}, [&](Canvas& canvas) {
                canvas.stamp({50.2, 39.8}, first);
                canvas.stamp({90, 40}, second);
            });
            EXPECT_EQ(stamped.image, drawn.image);
        }
    }
}

TEST(LabelCache, StaysBoundedAndKeepsWhatIsInUse) {
    DisplayFonts fonts{QString()};
    LabelCache labels(fonts);
    const TextStyle style{.font = {40}, .color = kWhite, .halo = kRed};
    const auto* firstPixels = labels.get("KSEA", style, 1).image.constBits();
    for (int i = 0; i < 3000; ++i) {
        labels.get("label " + std::to_string(i), style, 1);
        ASSERT_EQ(labels.get("KSEA", style, 1).image.constBits(), firstPixels) << i;
        ASSERT_LT(labels.bytes(), 2 * LabelCache::kGenerationBytes + 100'000);
    }
}

TEST(LabelCache, TellsStylesApart) {
    DisplayFonts fonts{QString()};
    LabelCache labels(fonts);
    const TextStyle style{.font = {20}, .color = kWhite};
    const QImage plain = labels.get("KSEA", style, 1).image;
    TextStyle bold = style;
    bold.font.weight = FontWeight::Bold;
    TextStyle red = style;
    red.color = kRed;
    TextStyle rimmed = style;
    rimmed.halo = 0;
    for (const TextStyle& other : {bold, red, rimmed}) EXPECT_NE(labels.get("KSEA", other, 1).image, plain);
    EXPECT_NE(labels.get("KSEA", style, 2).image.size(), plain.size());
    EXPECT_EQ(labels.get("KSEA", style, 1).image, plain);
}

}}  // namespace korvel
