#include <algorithm>
#include <array>
#include <numeric>
#include <thread>

#include <gtest/gtest.h>

#include "TempFolder.h"
#include "TimeZone.h"
#include "navdb/TestDatabase.h"
#include "navdb/file/DatabaseChecksum.h"
#include "navdb/file/DatabaseFile.h"
#include "navdb/file/DatabaseVerify.h"
#include "navdb/file/LittleEndian.h"
#include "platform/SystemClock.h"
#include "platform/VirtualClock.h"

namespace korvel { namespace {

/// A whole file, laid out and summed up by hand: one table with a field of every type, two rows.
constexpr std::string_view kTinyFile =
    // clang-format off
    "4e61764462342e37000000000000"  // 0: version, full checksum 0
    "4b00000040000000e90000004a010000ab3f320180b5a2fa"  // 14: region 'K', directories, string area, expiry, coverage, cycle, grid
    "6046b6021e0500005c010000"
    "3a11000000000000000000000000"  // 50: header checksum
    "5f4e4156000000002600000009000000"  // 64: table "_NAV", row size 38, 9 fields
    "49440000000000000300000004000000"  // 80: ID: text
    "4c415400000000000400000004000000"  // 96: LAT: degrees
    "4c4f4e00000000000400000004000000"  // 112: LON: degrees
    "54595045000000000100000004000000"  // 128: TYPE: integer
    "46524551000000000500000004000000"  // 144: FREQ: ten-thousandths
    "56415200000000000600000004000000"  // 160: VAR: 16.16
    "4e4f5445000000000700000004000000"  // 176: NOTE: marked text
    "52415700000000000200000006000000"  // 192: RAW: 6 bytes
    "4e414d45000000000300000004000000"  // 208: NAME: text
    "010000000000000000"  // 224: one key; end
    "4e61764b6579000040000000fe0000004c00000000"  // 233: index "NavKey": 76 bytes at 254; end
    "01000000fba63f020504b7f86100000080d211000000feff"  // 254: OAK
    "0d0000000102ab04050000000000"
    "01000000ffffffff010000002300000090c7c6ff00800100"  // 292: OAK again
    "0000000000000000000005000000"
    "004f414b004fc14b4c414e44006e6f746500"  // 330: strings
    "3a003900070000000800000009000000";  // 348: grid: cells 57 to 58
// clang-format on

std::vector<std::uint8_t> tinyFile() {
    const auto digit = [](char c) { return static_cast<unsigned>(std::string_view("0123456789abcdef").find(c)); };
    std::vector<std::uint8_t> bytes;
    for (std::size_t i = 0; i < kTinyFile.size(); i += 2)
        bytes.push_back(static_cast<std::uint8_t>(digit(kTinyFile[i]) * 16 + digit(kTinyFile[i + 1])));
    return bytes;
}

constexpr std::uint32_t kTinyFullChecksum = 43852;
constexpr std::size_t kTinyRow = 254;

void fixHeaderChecksum(std::vector<std::uint8_t>& bytes) {
    storeU32(bytes, kHeaderChecksumOffset, headerChecksum(bytes, static_cast<std::uint32_t>(bytes.size())));
}

class DatabaseFileTest : public ::testing::Test {
 protected:
    std::string open(const std::vector<std::uint8_t>& bytes) {
        writeBytes(path_, bytes);
        DatabaseFile file;
        return file.Open(path_, clock_);
    }
    std::string openVersion(std::string_view version) {
        auto bytes = tinyFile();
        std::fill_n(bytes.begin(), kVersionLength, std::uint8_t{0});
        std::copy(version.begin(), version.end(), bytes.begin());
        return open(bytes);
    }
    /// Notes the percentages and breaks off at this one.
    std::string openNoting(DatabaseFile& file, int until = 101) {
        progress_.clear();
        return file.Open(path_, clock_, [&](int percent) {
            progress_.push_back(percent);
            return percent < until;
        });
    }

    std::vector<int> progress_;
    TempFolder folder_;
    std::filesystem::path path_ = folder_.path() / "tiny.ng2";
    VirtualClock clock_{{.year = 2007, .month = 3, .day = 1}};
};

TEST(DatabaseChecksumTest, MatchesSumsWorkedOutElsewhere) {
    const auto sumOf = [](std::vector<std::uint8_t> bytes) {
        DatabaseChecksum sum;
        sum.add(std::span(bytes).first(bytes.size() / 2));
        sum.add(std::span(bytes).subspan(bytes.size() / 2));
        return sum.value();
    };
    std::vector<std::uint8_t> all(256);
    std::iota(all.begin(), all.end(), std::uint8_t{0});
    EXPECT_EQ(sumOf({}), 0U);
    EXPECT_EQ(sumOf({0}), 217U);
    EXPECT_EQ(sumOf({'K', 'o', 'r', 'v', 'e', 'l'}), 949U);
    EXPECT_EQ(sumOf(all), 34217U);
}

TEST_F(DatabaseFileTest, ReadsHeaderDirectoriesAndGrid) {
    writeBytes(path_, tinyFile());
    DatabaseFile file;
    ASSERT_EQ(openNoting(file), "");
    EXPECT_EQ(progress_, (std::vector{50, 70, 85, 100}));
    const DatabaseHeader& header = file.header();
    EXPECT_EQ(std::tuple(header.version, file.regionLetter(), header.expiry, header.dataCycle, *file.fileName()),
        std::tuple("NavDb4.7", 'K', 20070315U, 1310U, "tiny.ng2"));
    EXPECT_DOUBLE_EQ(header.southernCoverageDeg, -90.0);
    EXPECT_DOUBLE_EQ(header.northernCoverageDeg, 45.5);
    EXPECT_EQ(file.firstCell(), 57);
    EXPECT_EQ(file.gridWords(), (std::vector<std::uint32_t>{7, 8, 9}));

    const IndexEntry* const index = file.index("NavKey");
    ASSERT_NE(index, nullptr);
    EXPECT_EQ(unpackName(index->table->name), "_NAV");
    EXPECT_EQ(index->rowCount(), 2U);
    EXPECT_EQ(index->rowPosition(1), kTinyRow + 38);
    EXPECT_EQ(index->table->keys, std::vector<std::uint32_t>{0});
    EXPECT_EQ(file.index("Nav"), nullptr);
}

TEST_F(DatabaseFileTest, DecodesEveryTypeByItsWidth) {
    writeBytes(path_, tinyFile());
    DatabaseFile file;
    ASSERT_EQ(file.Open(path_, clock_), "");
    const auto rows = file.rows();
    FieldMap fields;
    using Printed = std::map<std::string, std::string>;
    const auto printed = [&](std::uint32_t row) {
        EXPECT_TRUE(rows->load(*file.index("NavKey"), row));
        rows->decode(fields);
        Printed texts;
        for (const auto& [name, value] : fields) texts[name] = value.print();
        return texts;
    };
    EXPECT_EQ(printed(0),
        (Printed{{"ID", "OAK"}, {"LAT", "37.725947"}, {"LON", "-122.223611"}, {"TYPE", "97"}, {"FREQ", "116.8000"},
            {"VAR", "-2.000000"}, {"NOTE", "note"}, {"RAW", "01 02 ab 04 05 00 "}, {"NAME", ""}}));
    EXPECT_EQ(std::get<MarkedText>(fields["NOTE"].content).word, 13U);
    // The walk for one field takes 4 bytes for the block and so meets its last two for the name.
    EXPECT_EQ(rows->readNamedField("LAT")->print(), "37.725947");
    EXPECT_EQ(rows->readNamedField("NAME")->print(), "OAKLAND");  // 0xC1 is read as 'A'
    EXPECT_FALSE(rows->readNamedField("NOPE"));
    EXPECT_EQ(printed(1),
        (Printed{{"ID", "OAK"}, {"LAT", "-0.000001"}, {"LON", "0.000001"}, {"TYPE", "35"}, {"FREQ", "-375.0000"},
            {"VAR", "1.500000"}, {"NOTE", ""}, {"RAW", "00 00 00 00 00 00 "}, {"NAME", "OAKLAND"}}));
}

TEST_F(DatabaseFileTest, CutsATextAt1024Bytes) {
    auto bytes = tinyFile();
    const auto end = static_cast<std::uint32_t>(bytes.size());
    bytes.resize(bytes.size() + 3000, 'x');
    storeU32(bytes, kStringAreaOffset, end - 1);
    fixHeaderChecksum(bytes);
    writeBytes(path_, bytes);
    DatabaseFile file;
    ASSERT_EQ(file.Open(path_, clock_), "");
    const auto rows = file.rows();
    ASSERT_TRUE(rows->load(*file.index("NavKey"), 0));
    EXPECT_EQ(rows->readNamedField("ID")->print(), std::string(1024, 'x'));
}

TEST_F(DatabaseFileTest, OpensReadableVersionsOnly) {
    const std::string update = "Incorrect Format...Update!";
    const std::vector<std::pair<std::string, std::string>> cases{{"NavDb4.3", ""}, {"NavDb4.7", ""}, {"NavDb4.9", ""},
        {"NavDb 4.50", ""}, {"NavDb4.2", update}, {"NavDb4.29", update}, {"NavDb5.0", update}, {"NavDb", update},
        {"NavDbx", update}, {"NavDbnan", update}, {"NavDb-4.7", update}, {"NavDB4.7", "Incorrect Format"},
        {"", "Incorrect Format"}, {"NavD", "Incorrect Format"}};
    for (const auto& [version, message] : cases) EXPECT_EQ(openVersion(version), message) << version;
}

TEST_F(DatabaseFileTest, TellsWhyAFileCannotBeOpened) {
    DatabaseFile file;
    EXPECT_EQ(file.Open(folder_.path() / "missing.ng2", clock_), "File Open Error");
    EXPECT_EQ(file.Open(folder_.path(), clock_), "File Open Error");
    EXPECT_EQ(open({}), "Invalid Format");
    auto bytes = tinyFile();
    bytes.resize(63);
    EXPECT_EQ(open(bytes), "Invalid Format");
}

TEST_F(DatabaseFileTest, QuickTestCoversHeaderAndSizeOnly) {
    auto changedRow = tinyFile();
    changedRow[kTinyRow] ^= 1U;
    EXPECT_EQ(open(changedRow), "");
    for (std::size_t at = kRegionOffset; at < kHeaderChecksumOffset + 4; ++at) {
        auto bytes = tinyFile();
        bytes[at] ^= 0x10U;
        EXPECT_EQ(open(bytes), "Corrupted file") << at;
    }
    auto longer = tinyFile();
    longer.push_back(0);
    EXPECT_EQ(open(longer), "Corrupted file");
}

TEST_F(DatabaseFileTest, FullTestCoversEveryByteAndIsMarkedFromVersion45On) {
    auto bytes = tinyFile();
    storeU32(bytes, kFullChecksumOffset, kTinyFullChecksum);
    for (std::size_t at = kRegionOffset; at < bytes.size(); ++at) {
        auto changed = bytes;
        changed[at] ^= 1U;
        EXPECT_EQ(open(changed), "Corrupted file") << at;
    }
    EXPECT_NE(loadU32(readBytes(path_), kFullChecksumOffset), 0U);
    EXPECT_EQ(open(bytes), "");
    EXPECT_EQ(readBytes(path_), tinyFile());

    bytes[7] = '4';
    writeBytes(path_, bytes);
    DatabaseFile file;
    EXPECT_EQ(openNoting(file), "");
    EXPECT_EQ(progress_, (std::vector{60, 70, 85, 100}));
    EXPECT_EQ(readBytes(path_), bytes);
    for (int percent : {60, 70, 85}) {
        DatabaseFile broken;
        EXPECT_EQ(openNoting(broken, percent), "Aborting");
        EXPECT_EQ(progress_.back(), percent);
        EXPECT_EQ(broken.index("NavKey"), nullptr);
    }
}

TEST_F(DatabaseFileTest, RefusesDirectoriesThatLeadOutOfTheFile) {
    const std::vector<std::pair<std::size_t, std::uint32_t>> patches{{kTableDirectoryOffset, 365},
        {kIndexDirectoryOffset, 0xFFFFFFFF}, {kStringAreaOffset, 365}, {kAreaGridOffset, 361}, {72, 0},
        {72, 33},                             // row size
        {72, 0x10000000}, {76, 10},           // field count
        {76, 0xFFFFFFFF}, {204, 0xFFFFFFF0},  // length of the byte block
        {224, 4},                             // key count
        {241, 65},                            // the index's table
        {245, 364}, {249, 111},               // data start and length
        {249, 0xFFFFFFFF}};
    for (const auto& [offset, value] : patches) {
        auto bytes = tinyFile();
        storeU32(bytes, offset, value);
        fixHeaderChecksum(bytes);
        EXPECT_EQ(open(bytes), "Corrupted file") << offset << ' ' << value;
    }
    // Cut anywhere, with a header that claims that size: an error or a file that can be read.
    for (std::size_t size = kHeaderSize; size < tinyFile().size(); ++size) {
        auto bytes = tinyFile();
        bytes.resize(size);
        fixHeaderChecksum(bytes);
        const std::string message = open(bytes);
        EXPECT_TRUE(message == "Corrupted file") << size << message;
    }
}

TEST_F(DatabaseFileTest, ReadsNothingFromAFileThatWasCutWhileOpen) {
    writeBytes(path_, tinyFile());
    DatabaseFile file;
    ASSERT_EQ(file.Open(path_, clock_), "");
    std::filesystem::resize_file(path_, kTinyRow + 20);
    const IndexEntry& index = *file.index("NavKey");
    const auto rows = file.rows();
    EXPECT_FALSE(rows->load(index, 0));
    EXPECT_FALSE(rows->equals(index, 0, *orderingField(index), "OAK"));
}

TEST_F(DatabaseFileTest, SearchesWhileSeveralThreadsTriggerTheFirstRead) {
    TestDatabase database;
    for (int i = 0; i < 2000; ++i) database.addFix(numbered("F", i / 2), 0.0, 0.0);
    DatabaseFile file;
    ASSERT_EQ(file.Open(database.write(folder_.path(), "fixes.ng2"), clock_), "");
    const IndexEntry& index = *file.index("WptKey");
    const FieldEntry& id = *orderingField(index);
    std::array<int, 4> found{};
    std::vector<std::thread> threads;
    for (int& finds : found) {
        threads.emplace_back([&] {
            for (int i = 0; i < 1000; ++i) {
                const std::string key = numbered("F", i);
                const auto rows = file.rows();
                const std::uint32_t row = rows->firstNotBelow(index, id, key);
                finds += rows->equals(index, row, id, key) && rows->equals(index, row + 1, id, key) &&
                                 !rows->equals(index, row + 2, id, key) &&
                                 (row == 0 || !rows->equals(index, row - 1, id, key))
                             ? 1
                             : 0;
            }
        });
    }
    for (auto& thread : threads) thread.join();
    EXPECT_EQ(found, (std::array{1000, 1000, 1000, 1000}));
    const auto rows = file.rows();
    EXPECT_EQ(rows->firstNotBelow(index, id, "A"), 0U);
    EXPECT_EQ(rows->firstNotBelow(index, id, "G"), 2000U);
    EXPECT_EQ(rows->firstNotBelow(index, id, "F9985"), 1998U);
}

TEST_F(DatabaseFileTest, VerifyFindsWhatOpeningDoesNot) {
    TestDatabase database;
    for (int i = 0; i < 30; ++i) {
        database.addFix(numbered("F", i), i % 7, i * 11 % 40);
        database.addAirport(numbered("A", i), -i, -i);
    }
    const auto sound = database.bytes();
    const auto verify = [&](std::size_t offset, std::uint32_t value) {
        auto bytes = sound;
        storeU32(bytes, offset, value);
        fixHeaderChecksum(bytes);
        writeBytes(path_, bytes);
        return verifyDatabase(path_, clock_);
    };
    EXPECT_EQ(verify(kExpiryOffset, 20300101), "");
    DatabaseFile file;
    ASSERT_EQ(file.Open(path_, clock_), "");
    const auto word = [&](std::string_view index, std::uint32_t row, std::string_view field) {
        const IndexEntry& entry = *file.index(index);
        return entry.rowPosition(row) + entry.table->field(packName(field))->offset;
    };
    EXPECT_EQ(verify(word("WptKey", 4, "ID"), 0), "Index WptKey, row 4: out of order");
    EXPECT_EQ(verify(word("WpNKey", 9, "LON"), 0xFFFFFFFF), "Index WpNKey, row 9: out of order");
    EXPECT_EQ(verify(word("AptKey", 3, "NAME"), 0xFFFFFFF0), "Index AptKey, row 3: text outside the file");
    EXPECT_EQ(verify(file.header().areaGrid + 40, 0xFFFFFFFF), "Area grid: offset outside the file");
    writeBytes(path_, {});
    EXPECT_EQ(verifyDatabase(path_, clock_), "Invalid Format");
}

TEST(DataCurrencyTest, EndsADayAfterTheMidnightOfTheExpiryInRegionKOnly) {
    const LocalTime lastSecond{.year = 2007, .month = 3, .day = 15, .hour = 23, .minute = 59, .second = 59};
    const LocalTime midnight{.year = 2007, .month = 3, .day = 16};
    const std::tuple<std::uint32_t, char, LocalTime, bool> cases[] = {{20070315, 'K', lastSecond, false},
        {20070315, 'K', midnight, true}, {20070315, 'L', midnight, false}, {0, 'K', lastSecond, true},
        {0, 'L', lastSecond, true}, {20071231, 'K', {.year = 2007, .month = 12, .day = 31, .hour = 23}, false},
        {20071231, 'K', {.year = 2008}, true}, {20070231, 'K', {.year = 2007, .month = 3, .day = 3}, false},
        {20070231, 'K', {.year = 2007, .month = 3, .day = 4}, true}, {1, 'K', midnight, true},
        {0xFFFFFFFF, 'K', midnight, false}};
    for (const auto& [expiry, region, now, isExpired] : cases)
        EXPECT_EQ(isOutOfDate(expiry, region, VirtualClock(now)), isExpired) << expiry << region;
    EXPECT_TRUE(isPastDate(20070315, VirtualClock(midnight))) << "in any region";
    EXPECT_FALSE(isPastDate(20070315, VirtualClock(lastSecond)));
}

TEST(DataCurrencyTest, CountsADayOf24HoursWhereTheClocksChange) {
    const struct {
        const char* zone;
        std::uint32_t expiry;
        LocalTime lastGood, firstExpired;
    } cases[] = {{"EST5EDT,M3.2.0,M11.1.0", 20260308, {2026, 3, 9, 0, 59, 59}, {2026, 3, 9, 1, 0, 0}},
        {"EST5EDT,M3.2.0,M11.1.0", 20261101, {2026, 11, 1, 22, 59, 59}, {2026, 11, 1, 23, 0, 0}},
        {"EST5EDT,M3.2.0,M11.1.0", 20260307, {2026, 3, 7, 23, 59, 59}, {2026, 3, 8, 0, 0, 0}},
        // midnight itself is left out
        {"<-03>3<-02>,M11.1.0/0,M2.3.0/0", 20261101, {2026, 11, 2, 0, 59, 59}, {2026, 11, 2, 1, 0, 0}},
        {"UTC0", 20260308, {2026, 3, 8, 23, 59, 59}, {2026, 3, 9, 0, 0, 0}}};
    const SystemClock zone;
    for (const auto& c : cases) {
        const TimeZone zoneOfCase(c.zone);
        if (!zoneOfCase.isInForce()) GTEST_SKIP() << "the zone is the whole system's";
        EXPECT_FALSE(isOutOfDate(c.expiry, 'K', VirtualClock(c.lastGood, zone))) << c.zone << c.expiry;
        EXPECT_TRUE(isOutOfDate(c.expiry, 'K', VirtualClock(c.firstExpired, zone))) << c.zone << c.expiry;
    }
}

TEST(LocationCellTest, WrapsAt180Degrees) {
    for (const auto& [degrees, cell] :
        {std::pair{-180.0, 0}, {180.0, 0}, {-0.000001, 179}, {179.999, 359}, {-190.5, 349}})
        EXPECT_EQ(westernCell(degrees), cell);
    for (const auto& [degrees, cell] : {std::pair{-0.5, 180}, {10.0, 190}, {10.000001, 191}})
        EXPECT_EQ(easternCell(degrees), cell);
    for (const int degree : {-180, -179, -1, 0, 1, 179, 180}) {
        EXPECT_EQ(cellOfStored(degree * 1000000), westernCell(degree)) << degree;
        EXPECT_EQ(cellOfStored(degree * 1000000 - 1), westernCell(degree - 1)) << degree;
    }
}

}}  // namespace korvel
