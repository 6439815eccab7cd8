#include <gtest/gtest.h>

#include "config/StringTable.h"

namespace korvel {
namespace {

TEST(StringTable, FillsInArguments) {
    EXPECT_EQ(text(static_cast<TextId>(61208)), "Default");
    EXPECT_EQ(text(static_cast<TextId>(61209)), "Night-Flight");
    EXPECT_EQ(text(static_cast<TextId>(1)), "");
    EXPECT_EQ(formatText(TextId::AutoZoomDisabled, {30}), "Auto-zoom/view disabled for 30 secs.");
    EXPECT_EQ(formatText(TextId::AutoZoomDisabled, {"x%d"}),
              "Auto-zoom/view disabled for x%d secs.");
    EXPECT_EQ(formatText(TextId::AutoZoomEnabled, {}), "Auto-zoom/view enabled");
}

}  // namespace
}  // namespace korvel
