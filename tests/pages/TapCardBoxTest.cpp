#include <gtest/gtest.h>

#include "pages/TapCardBox.h"
#include "paint/ColorScheme.h"
#include "paint/LabelSpace.h"
#include "paint/MapColorCache.h"
#include "paint/RecordingCanvas.h"

namespace korvel { namespace {

TapCardView wordy() {
    TapCardView view{.ident = "GB-0751",
        .name = "An Aerodrome Of A Name Without An End",
        .expired = true,
        .figures = {{{"BRG", "360°M"}, {"DIST", "12345.6 nm"}, {"ETE", "99:59"}}},
        .lines = {"MULTICOM 135.475   Elev 12345 ft", "A LINE OF AN AIRSPACE CTA 12  GND / FL195  118.500", "c", "d"},
        .buttons = {{{"Direct"}, {"Einfügen"}, {"Markieren", false}}}};
    view.step = "10/12";
    return view;
}

TEST(TapCardBox, HasRoomForItsWordsOnAnyPage) {
    const ColorScheme scheme;
    const MapColorCache colors(scheme);
    for (const auto& [width, height] :
        {std::pair{640., 290.}, {800., 320.}, {1280., 600.}, {480., 560.}, {320., 200.}}) {
        RecordingCanvas canvas(width, height);
        const TapCardRoom room{.width = width,
            .height = height,
            .aircraft = {width / 2 - 20, height / 2 - 20, 40, 40},
            .boxes = {},
            .finger = {width * 0.7, height * 0.3}};
        const TapCardSize size = tapCardSize(room, 15, 20, 4);
        EXPECT_EQ(size.buttonPx, 48) << "no thumb is narrower";
        const Rect area = placeTapCard(room, size);
        paintTapCard(canvas, {.view = wordy(), .area = area, .size = size}, colors);
        const TapCardLayout layout(area, size, true);
        for (const auto& element : canvas.elements())
            if (element.kind == RecordingCanvas::Kind::Text) {
                EXPECT_TRUE(element.area.x >= area.x && element.area.right() <= area.right()) << element.text;
                EXPECT_TRUE(element.area.y >= area.y && element.area.bottom() <= area.bottom()) << element.text;
                const bool inTitle = layout.title.contains(element.area.center()) && element.text != "10/12";
                EXPECT_FALSE(inTitle && overlap(element.area, layout.next)) << element.text;
            }
        EXPECT_NE(canvas.findText("EXPIRED"), nullptr);
        EXPECT_EQ(layout.partAt(layout.next.center()), CardPart::Next);
        for (std::size_t i = 0; i < TapCardView::kButtons; ++i)
            EXPECT_EQ(layout.partAt(layout.buttons.at(i).center()), static_cast<CardPart>(i));
        EXPECT_EQ(layout.partAt(layout.figures.center()), std::nullopt);
    }
}

TEST(TapCardBox, StandsNearTheFingerAndOffWhatMustBeSeen) {
    TapCardRoom room{.width = 1280, .height = 600, .aircraft = {620, 300, 40, 40}, .boxes = {}, .finger = {900, 150}};
    const TapCardSize size = tapCardSize(room, 15, 48, 2);
    const auto place = [&] { return placeTapCard(room, size); };
    const Rect free = place();
    EXPECT_FALSE(free.contains(room.finger));
    EXPECT_LT(std::min(std::abs(free.y - 150), std::abs(free.bottom() - 150)), 90) << "near by";
    room.boxes = {free};
    EXPECT_FALSE(overlap(place(), {free.center().x - 20, free.center().y - 20, 40, 40})) << "off an alarm";
    room.boxes.clear();
    room.aircraft = {free.center().x, free.center().y, 40, 40};
    EXPECT_FALSE(overlap(place(), room.aircraft));
}

}}  // namespace korvel
