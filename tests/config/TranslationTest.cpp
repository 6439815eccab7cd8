#include <gtest/gtest.h>

#include "TempFolder.h"
#include "config/DataFileSearch.h"
#include "config/Translation.h"
#include "config/texts/AllTexts.h"
#include "config/texts/StatusTexts.h"
#include "platform/FileIo.h"

namespace korvel { namespace {

std::string wordsOf(const Translation& translation, const Text& text) {
    const std::string* const words = translation.find(text.number);
    return words ? *words : "-";
}

TEST(Translation, TakesALineOnlyWhenItCanStandForTheEnglishText) {
    const struct {
        const char* line;
        const char* wanted;  // for POSITION LOST %s
    } cases[] = {
        {"61112 VERLOREN %s", "VERLOREN %s"},
        {"# Worte\r\n\r\n61112 seit %s\r\n", "seit %s"},
        {"\xEF\xBB\xBF"
         "61112 %s",
            "%s"},
        {"61112 a\\nb\\\\n %s", "a\nb\\n %s"},
        {"61112  %s ", " %s "},
        {"61112 ä\xE2\x88\x92\xF0\x9F\x9B\xA9%s", "ä\xE2\x88\x92\xF0\x9F\x9B\xA9%s"},
        {"61112 zuerst %s\n61112 dann %s", "zuerst %s"},
        {"61112 verloren", "-"},
        {"61112 %d", "-"},
        {"61112 %s %s", "-"},
        {"61112 %s, 100 %", "-"},
        {"61112 %%s", "-"},
        {"61112", "-"},
        {"61112 ", "-"},
        {"61112%s", "-"},
        {"61112 \\t%s", "-"},
        {"61112 %s\\", "-"},
        {"61112 \t%s", "-"},
        {"61112 %s\x7F", "-"},
        {"61112 \xE4%s", "-"},
        {"61112 %s\xC3", "-"},
        {"61112 \xC0\xAF%s", "-"},
        {"61112 \xED\xA0\x80%s", "-"},
        {"61112 \xF4\x90\x80\x80%s", "-"},
        {"1 %s", "-"},
    };
    for (const auto& [line, wanted] : cases)
        EXPECT_EQ(wordsOf(Translation(line, "xx"), kStatusTexts.positionLost), wanted) << line;
    const Translation lines("61112 %s\n\nx\n# y\n61110 a\n61112 again %s", "xx");
    EXPECT_EQ(std::vector(lines.refusedLines().begin(), lines.refusedLines().end()), (std::vector{3, 6}));
}

TEST(Translation, IsFoundByTheLanguagesInTheirOrder) {
    const TempFolder folder;
    folder.write("own/de.lang", "61110 Kein Signal");
    folder.write("own/fr.lang", "61110 Aucun signal");
    folder.write("user/de-AT.lang", "61110 Ka Signal");
    folder.write("user/fr.lang", "61110 Rien");
    const DataFileSearch files({folder.path() / "user", folder.path() / "own"});
    const struct {
        std::vector<std::string> languages;
        const char* wanted;
    } cases[] = {{{"de"}, "Kein Signal"}, {{"de-DE", "fr"}, "Kein Signal"}, {{"de_AT"}, "Kein Signal"},
        {{"de-AT"}, "Ka Signal"}, {{"nl", "fr-CH", "de"}, "Rien"}, {{"en-GB", "de"}, "-"}, {{"nl", "C", ""}, "-"},
        {{}, "-"}};
    for (const auto& [languages, wanted] : cases)
        EXPECT_EQ(wordsOf(findTranslation(files, languages), kStatusTexts.noGpsSignal), wanted);
}

TEST(Translation, TheOneInUseGivesTheWordsAndEnglishTheRest) {
    useTranslation(Translation("61112 WEG SEIT %s", "xx"));
    EXPECT_EQ(formatText(kStatusTexts.positionLost, {"5 s"}), "WEG SEIT 5 s");
    EXPECT_EQ(text(kStatusTexts.simulator), kStatusTexts.simulator.english);
    useTranslation({});
    EXPECT_EQ(text(kStatusTexts.positionLost), "POSITION LOST %s");
}

TEST(Translation, TheGermanOneIsComplete) {
    const auto bytes = readWholeFile(std::filesystem::path(KORVEL_LANGUAGES) / "de.lang");
    ASSERT_TRUE(bytes);
    const Translation german(*bytes, "de");
    for (const int line : german.refusedLines()) ADD_FAILURE() << "line " << line << " is refused";
    for (const Text& text : allTexts()) EXPECT_NE(wordsOf(german, text), "-") << text.number << ' ' << text.english;
    EXPECT_NE(wordsOf(german, kStatusTexts.noGpsSignal), kStatusTexts.noGpsSignal.english);
}

}}  // namespace korvel
