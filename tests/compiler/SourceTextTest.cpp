#include <zlib.h>

#include <gtest/gtest.h>

#include "TempFolder.h"
#include "base/AsciiText.h"
#include "compiler/sources/AiracCycle.h"
#include "compiler/sources/AirportRules.h"
#include "compiler/sources/CsvTable.h"
#include "compiler/sources/Fields.h"
#include "compiler/sources/LineReader.h"
#include "platform/FileIo.h"

namespace korvel { namespace {

std::vector<std::string> linesOf(std::unique_ptr<ByteSource> source, bool* failed = nullptr) {
    LineReader reader(std::move(source));
    std::vector<std::string> lines;
    std::string_view line;
    while (reader.next(line)) {
        EXPECT_EQ(reader.number(), lines.size() + 1);
        lines.emplace_back(line);
    }
    if (failed != nullptr) *failed = reader.failed();
    return lines;
}

TEST(LineReader, TakesEveryKindOfLineEnd) {
    const std::tuple<std::string_view, std::vector<std::string>> cases[] = {
        {"", {}},
        {"a", {"a"}},
        {"a\n", {"a"}},
        {"a\r\nb\r\n\r\nc", {"a", "b", "", "c"}},
        {"a\rb\r\rc\r", {"a", "b", "", "c"}},
        {"a\n\r\nb", {"a", "", "b"}},
        {"\xEF\xBB\xBFid,name\n\xEF\xBB\xBF", {"id,name", "\xEF\xBB\xBF"}},
    };
    for (const auto& [text, lines] : cases) EXPECT_EQ(linesOf(openText(text)), lines) << text;
}

// The lines are longer together than a block, so CR and LF fall on its edge somewhere.
TEST(LineReader, KeepsLinesWholeAcrossBlocksPlainAndCompressed) {
    std::string text;
    std::vector<std::string> lines;
    for (std::size_t i = 0; text.size() < 700'000; ++i) {
        lines.emplace_back(i % 97, static_cast<char>('a' + i % 26));
        text += lines.back() + "\r\n";
    }
    EXPECT_EQ(linesOf(openText(text)), lines);

    const TempFolder folder;
    const std::filesystem::path path = folder / "lines.gz";
    gzFile file = gzopen(textOf(path).c_str(), "wb");
    gzwrite(file, text.data(), static_cast<unsigned>(text.size()));
    gzclose(file);
    EXPECT_EQ(linesOf(openTextFile(path)), lines);

    auto bytes = readWholeFile(path).value();
    bytes.resize(bytes.size() / 2);
    ASSERT_TRUE(writeFileAtomically(path, bytes));
    bool failed = false;
    EXPECT_LT(linesOf(openTextFile(path), &failed).size(), lines.size());
    EXPECT_TRUE(failed) << "half a .gz must not pass for a short file";
    EXPECT_EQ(openTextFile(folder / "no such file"), nullptr);
}

TEST(Fields, ReadsWholeNumbersOnly) {
    EXPECT_EQ(wholeDouble("-077.32491667"), -77.32491667);
    EXPECT_EQ(wholeDouble("+12.5"), 12.5);
    EXPECT_EQ(wholeInt("00410"), 410);
    for (const auto* text : {"", "12x", "1,5", "nan", "inf", "1e999", "+-1", " 1"})
        EXPECT_FALSE(wholeDouble(text)) << text;
    EXPECT_FALSE(wholeInt("1.5"));
    EXPECT_FALSE(wholeInt("99999999999"));
    EXPECT_FALSE(latitudeDeg("90.1"));
    EXPECT_TRUE(longitudeDeg("-180"));
    EXPECT_FALSE(longitudeDeg("180.01"));
}

TEST(AsciiText, FoldsNamesToPlainLetters) {
    const std::tuple<const char*, const char*> cases[] = {
        {"Zürich", "Zurich"},
        {"Malm\xF6 Sturup", "Malmo Sturup"},  // Latin-1
        {"Ørland Ærø Straße", "Orland AEro Strasse"},
        {"Łódź – “Lublinek”", "Lodz - \"Lublinek\""},
        {"Tân Sơn Nhất", "Tan Son Nhat"},
        {"Cafe\u0301 d’Or", "Cafe d'Or"},
        {"羽田 Haneda", "?? Haneda"},
        {"  tab\tand   blanks \n", "tab and blanks"},
        {"cut \xE7", "cut c"},
    };
    for (const auto& [text, plain] : cases) EXPECT_EQ(toAsciiText(text), plain);
    EXPECT_TRUE(isIdentifier("US-0571"));
    EXPECT_TRUE(isIdentifier("ABCDEFGHIJK"));
    for (const auto* text : {"", "ABCDEFGHIJKL", "A B", "A@B", "\xC0\xCE", "A;B"})
        EXPECT_FALSE(isIdentifier(text)) << text;
}

TEST(AiracCycle, ExpiresWhenTheNextOneTakesOver) {
    const std::tuple<const char*, int, int> cases[] = {
        {"1000 Version - data cycle 2013.10, build 20131335", 1310, 20131017},
        {"1200 Version - data cycle 2406, build 20251002", 2406, 20240711}, {"data cycle 0702", 702, 20070315},
        {"data cycle 2001", 2001, 20200130},     // effective on 2 January 2020
        {"data cycle 2020.14", 2014, 20210128},  // a year with fourteen
    };
    for (const auto& [header, yycc, expiry] : cases) {
        const auto cycle = AiracCycle::namedIn(header);
        ASSERT_TRUE(cycle) << header;
        EXPECT_EQ(cycle->yycc(), yycc);
        EXPECT_EQ(cycle->expiryYmd(), expiry);
    }
    for (const auto* header : {"1100 Version", "data cycle unknown", "data cycle 2113.0", "data cycle 2114",
             "data cycle 2400", "data cycle 1310."})
        EXPECT_FALSE(AiracCycle::namedIn(header)) << header;
    EXPECT_TRUE(isDateYmd(20240229));
    for (const int ymd : {0, 20230229, 20231301, 2023, -20230101}) EXPECT_FALSE(isDateYmd(ymd)) << ymd;
}

TEST(CsvTable, ReadsQuotesColumnsInAnyOrderAndReportsShortRows) {
    std::vector<std::string> reported;
    ImportLog log([&](const std::string& line) { reported.push_back(line); });
    ImportContext context{log, {}};
    constexpr std::string_view kText =
        "name,ident,\r\n"
        "\"A, \"\"B\"\"\",X1\r\n"
        "only one\n"
        "\"two\nlines\", X2 ,more\n"
        "\n"
        ",X3\n";
    CsvTable table("in.csv", openText(kText), context);
    const std::string_view needed[] = {"ident", "name"};
    ASSERT_EQ(table.readHeader(needed), "");
    const std::pair<const char*, const char*> rows[] = {{"A, \"B\"", "X1"}, {"two lines", "X2"}, {"", "X3"}};
    for (const auto& [name, ident] : rows) {
        ASSERT_TRUE(table.next());
        EXPECT_EQ(table["name"], name);
        EXPECT_EQ(table["ident"], ident);
        EXPECT_EQ(table["no such column"], "");
    }
    EXPECT_FALSE(table.next());
    EXPECT_EQ(reported, std::vector<std::string>{"in.csv:3: fewer fields than columns"});

    CsvTable other("in.csv", openText("ident\n"), context);
    EXPECT_EQ(other.readHeader(needed), "in.csv: column name is missing");
}

TEST(AirportRules, TellsPrivateFieldsByTheirIdentifiers) {
    const GeoDegrees ohio{40.0, -83.0};
    for (const auto* ident : {"CA54", "81CA", "1OK8", "00AA"}) EXPECT_TRUE(isPrivateIdentifier(ident, ohio)) << ident;
    for (const auto* ident : {"KSEA", "S50", "1T7", "A1B2", "123A", "AB1"})
        EXPECT_FALSE(isPrivateIdentifier(ident, ohio)) << ident;
    EXPECT_FALSE(isPrivateIdentifier("CA54", {48.0, 11.0}));
}

}}  // namespace korvel
