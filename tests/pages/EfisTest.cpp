#include <gtest/gtest.h>

#include "cockpit/Cockpit.h"
#include "pages/EfisPage.h"
#include "pages/EfisTape.h"

namespace korvel { namespace {

TEST(EfisPage, TheWorldTurnsAgainstTheAircraft) {
    const EfisLayout layout = layOutEfis(800, 374);
    const auto horizon = [&](double bank, double pitch, double right) {
        const Point point = worldPoint(layout, bank, pitch, right, 0);
        return Point{point.x - layout.center.x, point.y - layout.center.y};
    };
    EXPECT_LT(horizon(20, 0, 100).y, -30) << "right bank: the horizon's right end rises";
    EXPECT_GT(horizon(-20, 0, 100).y, 30);
    EXPECT_NEAR(horizon(0, 5, 0).y, 5 * layout.pixelsPerDeg, 1e-9) << "nose up: it sinks";
}

TEST(EfisTape, MarksSurroundTheValue) {
    EfisTape tape;
    tape.area = {0, 0, 80, 300};
    tape.value = 12;
    tape.visible = 60;
    tape.markStep = 10;
    tape.labelStep = 20;
    tape.fromZero = true;
    const auto marks = tape.marks();
    ASSERT_EQ(marks.size(), 5U);
    EXPECT_EQ(marks[0].value, 0);
    EXPECT_NEAR(marks[0].offset, -60, 1e-9);
    EXPECT_TRUE(marks[2].labelled && !marks[1].labelled);
    tape.fromZero = false;
    tape.kind = EfisTape::Kind::Heading;
    tape.area = {0, 0, 300, 40};
    EXPECT_EQ(tape.marks().front().value, 350) << "on beyond north";
    tape.value = 1e300;
    EXPECT_TRUE(tape.marks().empty());
}

}}  // namespace korvel
