#include <array>

#include <gtest/gtest.h>

#include "compiler/NavdbCompiler.h"
#include "compiler/NavdbWriter.h"

namespace korvel { namespace {

std::uint32_t wordAt(const std::string& file, std::size_t offset) {
    std::uint32_t value = 0;
    for (std::size_t i = 4; i-- > 0;) value = value << 8U | static_cast<std::uint8_t>(file.at(offset + i));
    return value;
}

/// The checksum as its definition words it, on its own feet.
std::uint32_t sumOf(std::string_view bytes) {
    unsigned r = 55665;
    std::uint32_t sum = 0;
    for (const char byte : bytes) {
        const unsigned c = static_cast<std::uint8_t>(byte) ^ (r >> 8U);
        r = ((c + r) * 52845 + 22719) % 65536;
        sum += c;
    }
    return sum;
}

constexpr std::array kTinyFields{FieldLayout{"ID", FieldType::Text}, FieldLayout{"LAT", FieldType::Degrees},
    FieldLayout{"MAG_VAR", FieldType::Fixed16}, FieldLayout{"FREQ", FieldType::TenThousandths},
    FieldLayout{"ELEV", FieldType::Integer}};

// One table of five fields, one index of two rows, no grid. By hand: header 64; table entry
// 8 + 4 + 4 + 5 x 16 + 4 = 100 and an end of 8; index entry 20 and an end of 8; strings "", "B",
// "AB": 1 + 2 + 3 = 6; two rows of 20.
TEST(NavdbWriter, WritesATinyDatabaseByteForByte) {
    NavdbWriter writer;
    NavdbRows rows{kTinyFields};
    const struct {
        const char* id;
        double lat, variation, freq;
        int elevation;
    } places[] = {{"B", -47.5, -16.25, 116.8, -12}, {"AB", 0.0000005, 19.0, 375.0, 433}};
    for (const auto& place : places) {
        rows.begin(place.id, place.lat);
        rows.text(writer.addText(place.id));
        rows.degrees(place.lat);
        rows.fixed16(place.variation);
        rows.tenThousandths(place.freq);
        rows.integer(place.elevation);
    }
    writer.addIndex("TinyKeys", writer.addTable("_T", kTinyFields), rows.inTextOrder());
    const std::string file = writer.finish({'w', 20131017, 1310, -90.0, 75.5});

    std::string expected;
    const auto word = [&expected](std::uint32_t value) {
        for (unsigned shift = 0; shift < 32; shift += 8) expected += static_cast<char>(value >> shift & 0xFFU);
    };
    const auto name = [&expected](std::string text) {
        text.resize(8, '\0');
        expected += text;
    };
    expected += std::string("NavDb4.7\0\0", 10);
    word(0);  // the full checksum, compared apart
    for (const std::uint32_t value : {0x77U, 64U, 172U, 200U, 20131017U, 0xFAA2B580U, 75500000U, 1310U, 0U, 0U})
        word(value);
    expected.resize(64, '\0');
    name("_T");
    word(20);
    word(5);
    const std::pair<const char*, std::uint32_t> fields[] = {
        {"ID", 3}, {"LAT", 4}, {"MAG_VAR", 6}, {"FREQ", 5}, {"ELEV", 1}};
    for (const auto& [field, type] : fields) {
        name(field);
        word(type);
        word(4);
    }
    word(0);
    name("");
    name("TinyKeys");
    word(64);
    word(206);
    word(40);
    name("");
    expected += std::string("\0B\0AB\0", 6);
    for (const std::uint32_t value : {3U, 1U, 19U << 16U, 3750000U, 433U}) word(value);
    for (const std::uint32_t value : {1U, 0xFD2B3520U, 0xFFEFC000U, 1168000U, 0xFFFFFFF4U}) word(value);

    ASSERT_EQ(file.size(), 246U);
    std::string summed = file.substr(14, 36);
    summed.append("\xF6\0\0\0", 4);  // the file's size
    EXPECT_EQ(wordAt(file, 50), sumOf(summed));
    EXPECT_EQ(wordAt(file, 10), sumOf(std::string_view(file).substr(14)));
    std::string without = file;
    without.replace(10, 4, 4, '\0').replace(50, 4, 4, '\0');
    EXPECT_EQ(without, expected);
}

TEST(NavdbWriter, SharesAndBoundsTexts) {
    NavdbWriter writer;
    const std::string tooLong(5000, 'x');
    const std::pair<std::string, std::uint32_t> texts[] = {
        {"", 0}, {"SEA", 1}, {"SEATTLE", 5}, {"SEA", 1}, {tooLong, 13}, {"next", 13 + 1024 + 1}};
    for (const auto& [text, at] : texts) EXPECT_EQ(writer.addText(text), at);
}

TEST(NavdbRows, OrdersByTextAndByCellThenLatitude) {
    constexpr std::array kFields{FieldLayout{"N"}};
    const struct {
        const char* text;
        double lat, lon;
    } places[] = {{"b", 10.0, 0.5}, {"B", 20.0, 180.0}, {"AA", 5.0, -179.5}, {"A", -5.0, -0.000001},
        {"A", 50.0, 179.99}, {"A-", 1.0, 0.0}};
    NavdbRows rows{kFields};
    for (std::int32_t i = 0; i < std::ssize(places); ++i) {
        const auto& place = places[i];
        rows.begin(place.text, place.lat, place.lon);
        rows.integer(i);
    }
    const auto numbers = [](const std::vector<std::uint8_t>& bytes) {
        std::string out;
        for (std::size_t i = 0; i < bytes.size(); i += 4) out += static_cast<char>('0' + bytes[i]);
        return out;
    };
    EXPECT_EQ(numbers(rows.inTextOrder()), "345210");
    // 180 E is the first cell, together with 179.5 W; 0.000001 W lies in the cell before 0.
    EXPECT_EQ(numbers(rows.inPlaceOrder()), "213504");
    const auto starts = rows.cellStarts();
    ASSERT_EQ(starts.size(), 361U);
    for (const auto& [cell, start] : {std::pair{0, 0}, {1, 2}, {179, 2}, {180, 3}, {181, 5}, {360, 6}})
        EXPECT_EQ(starts[static_cast<std::size_t>(cell)], start) << cell;
}

// The grid's word of a cell leads to the row that tells where the cell's places begin.
TEST(NavdbCompiler, PointsTheGridAtEachCellsRun) {
    AviationData data;
    for (const double lon : {-180.0, 8.2, 8.7}) data.fixes.push_back({"FIX", "", {50.0, lon}, kUsageLow});
    ImportLog log;
    const std::string file = compileNavdb(data, {}, log);
    const std::uint32_t grid = wordAt(file, 46);
    EXPECT_EQ(wordAt(file, grid), 359U);
    const auto fixesBefore = [&](std::uint32_t cell) { return wordAt(file, wordAt(file, grid + 4 + 4 * cell) + 12); };
    for (const auto& [cell, count] : {std::pair{0U, 0U}, {1U, 1U}, {188U, 1U}, {189U, 3U}, {360U, 3U}})
        EXPECT_EQ(fixesBefore(cell), count) << cell;
}

}}  // namespace korvel
