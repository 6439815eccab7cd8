#include <optional>
#include <vector>

#include <gtest/gtest.h>

#include "paint/LabelSpace.h"

namespace korvel { namespace {

TEST(LabelSpace, TheFirstComeKeepTheirRoom) {
    LabelSpace space({0, 0, 100, 100});
    space.reserve({-10, -10, 30, 30});
    EXPECT_FALSE(space.claim({10, 10, 20, 20}));
    EXPECT_TRUE(space.claim({20, 10, 20, 20}));  // edge to edge
    EXPECT_FALSE(space.claim({39, 29, 20, 20}));
    EXPECT_FALSE(space.claim({0, 0, 100, 100}));
    EXPECT_FALSE(space.claim({90, 50, 20, 20})) << "reaches out of the view";
    EXPECT_TRUE(space.claim({80, 80, 20, 20}));
    EXPECT_TRUE(space.isFree({60, 60, 10, 10}));
}

TEST(LabelSpace, ANameOnALineIsBetterThanNone) {
    LabelSpace space({0, 0, 100, 100});
    LabelSpace lines({0, 0, 100, 100});
    lines.reserve({0, 0, 100, 50});
    const std::vector<Rect> boxes{{-5, 60, 10, 10}, {10, 10, 10, 10}, {10, 30, 10, 10}, {10, 70, 10, 10}};
    for (const std::optional<std::size_t> taken : {std::optional<std::size_t>(3), {1}, {2}, {}})
        EXPECT_EQ(claimFirst(space, boxes, lines), taken);
}

}}  // namespace korvel
