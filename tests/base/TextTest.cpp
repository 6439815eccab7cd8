#include <gtest/gtest.h>

#include "base/Ascii.h"
#include "base/Calendar.h"
#include "base/Utf8.h"

namespace korvel { namespace {

TEST(Ascii, OnlyTheLettersOfAsciiHaveACase) {
    EXPECT_EQ(inCapitals("az AZ @[`{ \xE4\xFC"), "AZ AZ @[`{ \xE4\xFC");
    EXPECT_EQ(inSmallLetters("az AZ @[`{ \xC4\xDC"), "az az @[`{ \xC4\xDC");
    EXPECT_TRUE(equalsIgnoringCase("Kbfi", "kBFI"));
    EXPECT_FALSE(equalsIgnoringCase("[", "{"));
    EXPECT_TRUE(startsWithIgnoringCase("com12", "COM"));
    EXPECT_FALSE(startsWithIgnoringCase("co", "COM"));
    EXPECT_TRUE(endsWithIgnoringCase("a.Fp", ".FP"));
    EXPECT_FALSE(endsWithIgnoringCase("FP", ".FP"));
}

TEST(Ascii, TrimmingAndPadding) {
    EXPECT_EQ(trimmed(" \ta b\t "), "a b");
    EXPECT_EQ(trimmedLeft(" \ta b\t "), "a b\t ");
    EXPECT_EQ(trimmedRight(" \ta b\t "), " \ta b");
    EXPECT_EQ(trimmed(" \r\t "), "\r");
    EXPECT_EQ(trimmed(" \r\t ", " \r\t"), "");
    EXPECT_EQ(zeroPadded(7, 3), "007");
    EXPECT_EQ(zeroPadded(1234, 3), "1234");
    EXPECT_EQ(zeroPadded("7.5", 4), "07.5");
}

TEST(Utf8, TakesWellFormedCharactersAlone) {
    std::string_view text = "a\xC2\x80\xEF\xBF\xBF\xF4\x8F\xBF\xBF\xC3";
    std::vector<std::uint32_t> taken;
    while (const auto c = takeUtf8(text)) taken.push_back(*c);
    EXPECT_EQ(taken, (std::vector<std::uint32_t>{'a', 0x80, 0xFFFF, 0x10FFFF}));
    EXPECT_EQ(text, "\xC3") << "what is cut off stays";
    EXPECT_EQ(takeCodePoint(text), 0xC3U);
    EXPECT_EQ(text, "");
    for (const char* bad : {"\x80", "\xC1\xBF", "\xE0\x9F\xBF", "\xED\xA0\x80", "\xF0\x8F\xBF\xBF", "\xF4\x90\x80\x80",
             "\xF8\x88\x80\x80\x80", "\xE2\x82", "\xC3(", "\xFF"})
        EXPECT_FALSE(isUtf8(bad)) << bad;
    EXPECT_TRUE(isUtf8(""));
}

TEST(Calendar, DatesAsNumbersAndText) {
    const LocalTime leapDay{2028, 2, 29, 23, 59, 59};
    EXPECT_EQ(dateText(leapDay), "20280229");
    EXPECT_EQ(dateNumber(leapDay), 20280229U);
    EXPECT_EQ(dashedDate(20280229), "2028-02-29");
    EXPECT_EQ(dashedDate(1), "1");
    EXPECT_EQ(localTimeAt(localSeconds(leapDay) + 1), (LocalTime{2028, 3, 1, 0, 0, 0}));
    EXPECT_EQ(localTimeAt(-1), (LocalTime{1969, 12, 31, 23, 59, 59}));
    EXPECT_EQ(localSeconds({2026, 13, 32, 0, 0, 0}), localSeconds({2027, 2, 1, 0, 0, 0}));
    EXPECT_TRUE(isCalendarTime(leapDay));
    EXPECT_FALSE(isCalendarTime({2027, 2, 29, 0, 0, 0}));
}

}}  // namespace korvel
