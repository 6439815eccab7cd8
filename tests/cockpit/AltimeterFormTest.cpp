#include <gtest/gtest.h>

#include "cockpit/AltimeterForm.h"

namespace korvel { namespace {

TEST(AltimeterForm, TakesWhatTheAltimeterReads) {
    constexpr const char* kOutOfRange = "Altimeter: a number from -2000 to 60000 is wanted";
    constexpr const char* kTooFar = "More than 3000 ft from what the receiver says: is the altimeter set right?";
    const std::tuple<int, std::string, std::string, int> cases[] = {
        {0, "3400", "", 120},
        {0, "3280 ", "", 0},
        {0, "280", "", -3000},
        {0, "6281", kTooFar, 0},
        {0, "279", kTooFar, 0},
        {1, "1000", "", 1},
        {1, "900", "", -327},
        {0, "", kOutOfRange, 0},
        {0, "34x", kOutOfRange, 0},
        {0, "60001", kOutOfRange, 0},
    };
    for (const auto& [unit, typed, error, offsetFt] : cases) {
        std::int32_t offset = 0;
        EXPECT_EQ((AltimeterForm{.receiverFt = 3280, .altUnit = unit}).read(typed, offset), error) << typed;
        EXPECT_EQ(offset, offsetFt) << typed;
    }
    std::int32_t offset = 7;
    EXPECT_NE(AltimeterForm().read("3400", offset), "") << "nothing to compare it with";
    EXPECT_EQ(offset, 7);
    EXPECT_EQ(AltimeterForm().proposed(), "");
    const AltimeterForm set{.receiverFt = 3280, .offsetFt = 120};
    EXPECT_EQ(set.proposed(), "3400");
    EXPECT_EQ(set.words(), "The receiver says 3280 ft\nAltitudes are corrected by +120 ft");
    EXPECT_EQ((AltimeterForm{.receiverFt = 3280, .offsetFt = -120, .altUnit = 1}).words(),
        "The receiver says 1000 m\nAltitudes are corrected by -37 m");
}

}}  // namespace korvel
