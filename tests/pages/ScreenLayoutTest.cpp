#include <algorithm>
#include <cmath>

#include <gtest/gtest.h>

#include "pages/ScreenLayout.h"

namespace korvel { namespace {

double area(const Rect& rect) { return rect.width * rect.height; }

TEST(ScreenLayout, FieldsStandWhereThereIsRoom) {
    const std::tuple<double, double, FieldArrangement> cases[] = {{800, 480, FieldArrangement::OneRow},
        {640, 480, FieldArrangement::TwoRows}, {700, 480, FieldArrangement::OneRow},
        {699, 480, FieldArrangement::TwoRows}, {768, 1024, FieldArrangement::TwoRows},
        {1400, 900, FieldArrangement::OneRow}, {1401, 900, FieldArrangement::Column},
        {2560, 1600, FieldArrangement::Column}, {1600, 2560, FieldArrangement::Column}};
    for (const auto& [width, height, arrangement] : cases) {
        const ScreenLayout layout = layOutScreen({.width = width, .height = height, .fieldCount = 5});
        EXPECT_EQ(layout.arrangement, arrangement) << width << "x" << height;
        EXPECT_EQ(layout.fields.right(), width);
        EXPECT_EQ(layout.fields.y, 0);
    }
}

TEST(ScreenLayout, ButtonsAreLargeEnoughForAFinger) {
    const std::tuple<double, double, double> cases[] = {
        {480, 0, 44}, {480, 4, 44}, {480, 6, 54}, {800, 5.03, 48}, {1600, 0, 96},
        {480, 1000, 96},  // a screen that lies about its size
    };
    for (const auto& [height, pxPerMm, barHeight] : cases) {
        const ScreenLayout layout =
            layOutScreen({.width = 800, .height = height, .pxPerMm = pxPerMm, .buttonCount = 6});
        EXPECT_EQ(layout.touchBar.height, barHeight) << height << " " << pxPerMm;
    }
}

TEST(ScreenLayout, PartsFillTheWindowWithoutOverlap) {
    for (const double width : {320.0, 640.0, 799.0, 1280.0, 2560.0})
        for (const double height : {240.0, 480.0, 801.0, 1600.0})
            for (const std::size_t fields : {0U, 5U})
                for (const std::size_t buttons : {0U, 1U, 6U}) {
                    const bool status = buttons != 1;
                    const bool profile = fields > 0;
                    const ScreenLayout layout = layOutScreen({width, height, 5, status, fields, buttons, profile});
                    EXPECT_EQ(area(layout.status) + area(layout.fields) + area(layout.page) + area(layout.profile) +
                                  area(layout.touchBar),
                        width * height);
                    if (!profile || height > 240) {
                        EXPECT_EQ(layout.profile.height >= 72, profile) << width << "x" << height;
                    }
                    EXPECT_GE(area(layout.page), 2 * area(layout.profile));
                    EXPECT_EQ(layout.status.bottom(), status ? layout.status.height : 0);
                    EXPECT_EQ(layout.fields.height > 0 ? layout.fields.y : layout.page.y, layout.status.bottom());
                    EXPECT_GE(area(layout.page) + area(layout.profile), width * height * 0.4) << width << "x" << height;
                    double buttonArea = 0;
                    for (const Rect& button : layout.buttons) {
                        buttonArea += area(button);
                        EXPECT_EQ(button.x, std::round(button.x));
                        EXPECT_TRUE(layout.touchBar.contains(button.center()));
                    }
                    EXPECT_EQ(buttonArea, area(layout.touchBar));
                }
}

TEST(ScreenLayout, ATapFindsItsButton) {
    const ScreenLayout layout = layOutScreen({.width = 800, .height = 480, .fieldCount = 5, .buttonCount = 6});
    const std::pair<Point, std::optional<std::size_t>> taps[] = {{{0, 479}, 0}, {{132.9, 440}, 0}, {{133, 440}, 1},
        {{799, 436}, 5}, {{400, 435}, std::nullopt}, {{800, 440}, std::nullopt}};
    for (const auto& [at, button] : taps) EXPECT_EQ(layout.buttonAt(at), button) << at.x;
}

}}  // namespace korvel
