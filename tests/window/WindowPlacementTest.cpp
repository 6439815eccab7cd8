#include <gtest/gtest.h>

#include "window/WindowPlacement.h"

namespace korvel { namespace {

const QRect kLeftScreen(0, 0, 1280, 770);
const QRect kRightScreen(1280, 0, 1920, 1080);

TEST(WindowPlacement, KeepsAPlaceWhoseTopEdgeCanBeGrabbed) {
    const QList<QRect> screens = {kLeftScreen, kRightScreen};
    for (const QRect& place : {QRect(100, 50, 800, 600), QRect(2000, 300, 800, 600), QRect(-500, 10, 800, 600),
             QRect(1000, 10, 800, 600), QRect(0, 0, 1280, 770)})
        EXPECT_EQ(reachablePlace(place, screens), place);
}

TEST(WindowPlacement, BringsBackWhatNoScreenShows) {
    struct Case {
        QRect remembered, shown;
    };
    for (const Case& c : {
             Case{{2000, 300, 800, 600}, {480, 170, 800, 600}},  // the right screen is gone
             Case{{-790, 10, 800, 600}, {0, 10, 800, 600}},      // only a sliver is left
             Case{{100, -300, 800, 600}, {100, 0, 800, 600}},    // title above the screen
             Case{{100, 5000, 4000, 3000}, {0, 0, 1280, 770}},   // larger than the screen
             Case{{100, 50, 3000, 2000}, {100, 50, 1280, 770}},  // shrunk in place
             Case{{100, 50, 20, 10}, {100, 50, 480, 320}},       // too small to use
         })
        EXPECT_EQ(reachablePlace(c.remembered, {kLeftScreen}), c.shown) << c.remembered.x();
    const QRect first = reachablePlace(QRect(), {kLeftScreen});
    EXPECT_TRUE(kLeftScreen.contains(first));
    EXPECT_EQ(first.center(), kLeftScreen.center());
}

}}  // namespace korvel
