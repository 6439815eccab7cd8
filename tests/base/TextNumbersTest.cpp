#include <cmath>
#include <cstdio>
#include <limits>
#include <random>

#include <gtest/gtest.h>

#include "CommaLocale.h"
#include "base/TextNumbers.h"

namespace korvel { namespace {

/// What the C library makes of the text: the value and how many characters it took.
struct LibraryScan {
    bool found = false;
    double value = 0;
    int taken = 0;
};

LibraryScan scanWithLibrary(const std::string& text) {
    LibraryScan result;
    result.found = std::sscanf(text.c_str(), "%lf%n", &result.value, &result.taken) == 1;
    return result;
}

void expectLikeLibrary(const std::string& text) {
    const LibraryScan expected = scanWithLibrary(text);
    std::string_view rest = text;
    const std::optional<double> value = scanDouble(rest);
    ASSERT_EQ(value.has_value(), expected.found) << '"' << text << '"';
    if (!expected.found) {
        EXPECT_EQ(rest, text);
        return;
    }
    EXPECT_EQ(text.size() - rest.size(), static_cast<std::size_t>(expected.taken)) << text;
    if (std::isnan(expected.value)) {
        EXPECT_TRUE(std::isnan(*value)) << text;
    } else
        EXPECT_EQ(*value, expected.value) << text;
}

TEST(TextNumbers, ScansDecimalsLikeTheLibrary) {
    for (const char* text : {"", " ", "+", "-", ".", "-.", "x", "1", " 1.5x", "\t-.5", "5.", "+7", "--1", "1e3", "1E-3",
             "1e", "1e+", "1e-x", "1.e2", ".e2", "0x1A", "0x1.8p3", "0X.8", "0x", "0xg", "0x1p", "inf", "-Infinity",
             "infin", "infx", "nan", "NaNx", "1e400", "-1e400", "1e-400", "1,5", "4916.45", "00012.50", "1 2", "1_000"})
        expectLikeLibrary(text);
    std::mt19937 random(20260101);
    const std::string alphabet = "0123456789.+-eE inf";
    for (int i = 0; i < 200000; ++i) {
        std::string text;
        for (std::size_t length = random() % 9; length > 0; --length) text += alphabet[random() % alphabet.size()];
        expectLikeLibrary(text);
    }
}

TEST(TextNumbers, ScansIntegersAndSaturates) {
    const struct {
        const char* text;
        std::optional<int> value;
        const char* rest;
    } cases[] = {
        {"12,3", 12, ",3"},
        {" \t-7x", -7, "x"},
        {"+5", 5, ""},
        {"- 5", std::nullopt, "- 5"},
        {"abc", std::nullopt, "abc"},
        {"", std::nullopt, ""},
        {"0x10", 0, "x10"},
        {"2147483647", std::numeric_limits<int>::max(), ""},
        {"2147483648", std::numeric_limits<int>::max(), ""},
        {"-2147483648", std::numeric_limits<int>::min(), ""},
        {"-99999999999999999999999", std::numeric_limits<int>::min(), ""},
    };
    for (const auto& c : cases) {
        std::string_view rest = c.text;
        EXPECT_EQ(scanInt(rest), c.value) << c.text;
        EXPECT_EQ(rest, c.rest) << c.text;
    }
}

TEST(TextNumbers, ScansHexadecimal) {
    const std::tuple<const char*, std::optional<unsigned>> cases[] = {{"FF00ff", 0xFF00FFU}, {" 0x255 0 0", 0x255U},
        {"255,1", 0x255U}, {"#00FF", std::nullopt}, {"g", std::nullopt}, {"-1", 0xFFFFFFFFU}, {"0x", 0U},
        {"123456789A", 0xFFFFFFFFU}};
    for (const auto& [text, value] : cases) {
        std::string_view rest = text;
        EXPECT_EQ(scanHex(rest), value) << text;
    }
}

TEST(TextNumbers, IgnoresTheUsersLocale) {
    const CommaLocale comma;
    if (scanWithLibrary("1,5").value != 1.5) GTEST_SKIP() << "this system has no locale with a decimal comma";
    EXPECT_EQ(ParseDouble("1.5"), 1.5);
    EXPECT_EQ(ParseDouble("1,5"), 1.0);
    EXPECT_EQ(formatFixed(-1234567.875, 2), "-1234567.88");
    EXPECT_EQ(formatFixed(0.05, 1), "0.1");
}

}}  // namespace korvel
