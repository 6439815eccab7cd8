#include "navdb/TestDatabase.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <fstream>
#include <iterator>
#include <span>

#include "navdb/file/DatabaseChecksum.h"
#include "navdb/file/LittleEndian.h"

namespace korvel {
namespace {

constexpr std::int32_t kDeclaredLength = 4;

std::int32_t millionths(double degrees) { return static_cast<std::int32_t>(std::lround(degrees * 1e6)); }

/// Bytes that grow at the end.
class Output {
 public:
    std::vector<std::uint8_t> bytes;

    [[nodiscard]] std::uint32_t size() const { return static_cast<std::uint32_t>(bytes.size()); }
    void word(std::uint32_t value) {
        bytes.resize(bytes.size() + 4);
        storeU32(bytes, bytes.size() - 4, value);
    }
    void name(std::string_view text) {
        bytes.insert(bytes.end(), text.begin(), text.end());
        bytes.resize(bytes.size() + kNameLength - text.size());
    }
    void rows(const std::vector<TestDatabase::Row>& rows) {
        for (const auto& row : rows)
            for (const std::int32_t value : row) word(static_cast<std::uint32_t>(value));
    }
    void patch(std::size_t offset, std::uint32_t value) { storeU32(bytes, offset, value); }
};

struct Index {
    std::string_view name;
    std::size_t table;
    std::vector<TestDatabase::Row> rows;
};

struct Table {
    std::string_view name;
    std::span<const FieldLayout> fields;
};

constexpr std::array kTables{Table{"_APT", kAirportFields}, Table{"_AP2", kAirportFields}, Table{"_NAV", kNavaidFields},
    Table{"_WPT", kFixFields}, Table{"_AWY", kAirwayFields}, Table{"Runway", kRunwayEndFields},
    Table{"Comm", kCommFields}, Table{"_CELL", kCellFields}};

int cellOf(const TestDatabase::Row& row) { return cellOfStored(row[2]); }

std::vector<TestDatabase::Row> byLocation(std::vector<TestDatabase::Row> rows) {
    std::stable_sort(rows.begin(), rows.end(),
        [](const auto& a, const auto& b) { return std::pair(cellOf(a), a[1]) < std::pair(cellOf(b), b[1]); });
    return rows;
}

std::vector<TestDatabase::Row> cellRuns(const std::vector<const Index*>& locations) {
    std::vector<TestDatabase::Row> runs;
    for (int cell = 0; cell <= kCellCount; ++cell) {
        TestDatabase::Row row;
        for (const Index* location : locations) {
            row.push_back(static_cast<std::int32_t>(std::count_if(location->rows.begin(), location->rows.end(),
                [cell](const auto& place) { return cellOf(place) < cell; })));
        }
        runs.push_back(row);
    }
    return runs;
}

/// Returns the offset of each table's entry.
std::vector<std::uint32_t> writeTables(Output& out) {
    std::vector<std::uint32_t> offsets;
    for (const Table& table : kTables) {
        offsets.push_back(out.size());
        out.name(table.name);
        out.word(static_cast<std::uint32_t>(table.fields.size() * 4));
        out.word(static_cast<std::uint32_t>(table.fields.size()));
        for (const FieldLayout& field : table.fields) {
            out.name(field.name);
            out.word(static_cast<std::uint32_t>(field.type));
            out.word(kDeclaredLength);
        }
        out.word(0);
    }
    out.bytes.push_back(0);
    return offsets;
}

/// The directory, and behind it the rows of all indexes.
void writeIndexes(Output& out, const std::vector<Index>& indexes, const std::vector<std::uint32_t>& tableOffsets) {
    auto dataAt = static_cast<std::uint32_t>(out.size() + indexes.size() * kIndexEntrySize + 1);
    for (const Index& index : indexes) {
        const auto length = static_cast<std::uint32_t>(index.rows.size() * kTables[index.table].fields.size() * 4);
        out.name(index.name);
        out.word(tableOffsets[index.table]);
        out.word(dataAt);
        out.word(length);
        dataAt += length;
    }
    out.bytes.push_back(0);
    for (const Index& index : indexes) out.rows(index.rows);
}

/// The cells' rows have just been written.
void writeGridBehindRuns(Output& out) {
    constexpr std::uint32_t kRunRow = 4 * kCellFields.size();
    const std::uint32_t runsAt = out.size() - (kCellCount + 1) * kRunRow;
    out.word(kCellCount - 1);
    for (std::uint32_t cell = 0; cell <= kCellCount; ++cell) out.word(runsAt + cell * kRunRow);
}

}  // namespace

std::int32_t TestDatabase::text(std::string_view text) {
    if (text.empty()) return 0;
    const auto offset = static_cast<std::int32_t>(strings_.size());
    strings_.append(text).push_back('\0');
    return offset;
}

void TestDatabase::addAirport(
    std::string_view ident, double lat, double lon, std::string_view name, std::string_view table) {
    const std::int32_t ident0 = text(ident);
    auto& rows = table == "_APT" ? airports_ : secondAirports_;
    rows.push_back({std::string(ident), {ident0, millionths(lat), millionths(lon), ident0, -13 * 65536 - 32768, 431,
                                            text(name), text("Info"), kAirportTower | kAirportHardSurface}});
}

void TestDatabase::addNavaid(std::string_view ident, double lat, double lon, int type, double frequency) {
    navaids_.push_back({std::string(ident),
        {text(ident), millionths(lat), millionths(lon), type, static_cast<std::int32_t>(std::lround(frequency * 1e4)),
            text(std::string(ident) + " navaid")}});
}

void TestDatabase::addFix(std::string_view ident, double lat, double lon, int type) {
    fixes_.push_back({std::string(ident), {text(ident), millionths(lat), millionths(lon), type}});
}

void TestDatabase::addAirway(std::string_view name, std::string_view route) {
    airways_.push_back({std::string(name), {text(name), text(route)}});
}

void TestDatabase::addRunwayEnd(std::string_view arptId, int number, std::string_view end, int lengthFt) {
    runways_.push_back({std::string(arptId), {text(arptId), number, lengthFt, 100, text("ASPH"), 0, text(end), 90,
                                                 millionths(47.5), kNoInteger, kNoInteger, 'R'}});
}

void TestDatabase::addComm(std::string_view arptId, std::string_view type, double mhz) {
    comms_.push_back(
        {std::string(arptId), {text(arptId), text(type), static_cast<std::int32_t>(std::lround(mhz * 1e4))}});
}

std::vector<TestDatabase::Row> TestDatabase::byKey(std::vector<Keyed> keyed) {
    std::stable_sort(keyed.begin(), keyed.end(), [](const Keyed& a, const Keyed& b) { return a.key < b.key; });
    std::vector<Row> rows;
    std::transform(
        keyed.begin(), keyed.end(), std::back_inserter(rows), [](Keyed& entry) { return std::move(entry.row); });
    return rows;
}

std::vector<std::uint8_t> TestDatabase::bytes() const {
    std::vector<Index> indexes{{"AptKey", 0, byKey(airports_)}, {"Ap2Key", 1, byKey(secondAirports_)},
        {"NavKey", 2, byKey(navaids_)}, {"WptKey", 3, byKey(fixes_)}, {"ApNKey", 0, byLocation(byKey(airports_))},
        {"A2NKey", 1, byLocation(byKey(secondAirports_))}, {"NvNKey", 2, byLocation(byKey(navaids_))},
        {"WpNKey", 3, byLocation(byKey(fixes_))}, {"Airway", 4, byKey(airways_)}, {"RwyKey", 5, byKey(runways_)},
        {"ComKey", 6, byKey(comms_)}};
    indexes.push_back({"CellRun", 7, cellRuns({&indexes[4], &indexes[5], &indexes[6], &indexes[7]})});

    Output out;
    out.bytes.resize(kHeaderSize);
    std::copy(version.begin(), version.end(), out.bytes.begin());
    out.patch(kRegionOffset, region);
    out.patch(kExpiryOffset, expiry);
    out.patch(kTableDirectoryOffset, out.size());
    const auto tableOffsets = writeTables(out);
    out.patch(kIndexDirectoryOffset, out.size());
    writeIndexes(out, indexes, tableOffsets);
    if (hasAreaGrid) {
        out.patch(kAreaGridOffset, out.size());
        writeGridBehindRuns(out);
    }
    out.patch(kStringAreaOffset, out.size());
    out.bytes.insert(out.bytes.end(), strings_.begin(), strings_.end());
    out.patch(kHeaderChecksumOffset, headerChecksum(out.bytes, out.size()));
    return out.bytes;
}

std::filesystem::path TestDatabase::write(const std::filesystem::path& folder, std::string_view name) const {
    auto path = folder / name;
    writeBytes(path, bytes());
    return path;
}

void writeBytes(const std::filesystem::path& path, const std::vector<std::uint8_t>& bytes) {
    // A file that is cut and written again is flushed to the disk by some file systems.
    std::filesystem::remove(path);
    std::ofstream file(path, std::ios::binary);
    file.write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
}

std::vector<std::uint8_t> readBytes(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

}  // namespace korvel
