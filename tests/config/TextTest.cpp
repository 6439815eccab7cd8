#include <map>

#include <gtest/gtest.h>

#include "config/Text.h"
#include "config/texts/AllTexts.h"

namespace korvel { namespace {

TEST(Text, EachHasANumberOfItsOwnAndKnownPlaceholders) {
    std::map<int, std::string_view> seen;
    for (const Text& text : allTexts()) {
        EXPECT_GE(text.number, 61000) << text.english;
        EXPECT_NE(text.english, "") << text.number;
        const auto [first, isNew] = seen.emplace(text.number, text.english);
        EXPECT_TRUE(isNew) << text.number << " is \"" << first->second << "\" and \"" << text.english << '"';
        for (auto at = text.english.find('%'); at != std::string_view::npos; at = text.english.find('%', at + 1))
            EXPECT_TRUE(text.english.substr(at, 2) == "%s" || text.english.substr(at, 2) == "%d") << text.english;
    }
    EXPECT_GT(seen.size(), 300U);
}

TEST(Text, PlaceholdersAreFilledInTurn) {
    const struct {
        const char* pattern;
        std::initializer_list<TextArgument> arguments;
        const char* wanted;
    } cases[] = {
        {"%s at %d ft.", {"KBFI", 21}, "KBFI at 21 ft."},
        {"%s", {"100%d"}, "100%d"},
        {"%s of %s", {"A"}, "A of %s"},
        {"none", {"A", 1}, "noneA1"},
        {"cut %", {5}, "cut 5"},
    };
    for (const auto& [pattern, arguments, wanted] : cases) EXPECT_EQ(formatText({61000, pattern}, arguments), wanted);
}

}}  // namespace korvel
