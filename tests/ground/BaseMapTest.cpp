#include <cmath>
#include <zlib.h>

#include <gtest/gtest.h>

#include "geo/Geodesy.h"
#include "ground/MemoryFile.h"
#include "ground/SmallMap.h"
#include "ground/basemap/BaseMap.h"
#include "ground/basemap/MapSea.h"

namespace korvel { namespace {

GeoPoint at(double lat, double lon) { return {lat * kDegToRad, lon * kDegToRad}; }

std::string opened(BaseMap& map, const std::string& bytes) {
    return map.open(std::make_unique<MemoryFile>(bytes), "small.map");
}

/// `bytes` with a checksum that vouches for the directory.
std::string vouchedFor(std::string bytes) {
    const auto word = [&](std::size_t i) {
        std::uint32_t value = 0;
        for (unsigned k = 0; k < 4; ++k)
            value |= static_cast<std::uint32_t>(static_cast<unsigned char>(bytes[i + k])) << 8U * k;
        return value;
    };
    const std::size_t size = word(kMapHeadSizeAt);
    if (size < kMapHeaderSize || size > bytes.size()) return bytes;
    for (unsigned k = 0; k < 4; ++k) bytes[kMapChecksumAt + k] = 0;
    const std::vector<unsigned char> head(bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(size));
    const auto sum = crc32(crc32(0, nullptr, 0), head.data(), static_cast<uInt>(size));
    for (unsigned k = 0; k < 4; ++k) bytes[kMapChecksumAt + k] = static_cast<char>(sum >> 8U * k);
    return bytes;
}

/// Asks for everything in the map.
void readAll(BaseMap& map) {
    for (std::size_t sheet = 0; sheet < map.file().sheets().size(); ++sheet) {
        for (int bin = 0; bin < map.file().sheets()[sheet].bins(); ++bin) {
            const auto tile = map.tile(sheet, bin);
            const int steps = map.file().sheets()[sheet].steps();
            for (const LatticePoint point : tile->points) ASSERT_TRUE(point.x <= steps && point.y <= steps);
        }
    }
    for (int i = 0; i < kReliefColumns * kReliefRows; ++i) (void)map.relief(i);
    for (int i = 0; i < kTownColumns * kTownRows; ++i) (void)map.towns(i);
}

TEST(BaseMap, KnowsLandAndWaterInEverySheet) {
    BaseMap map;
    ASSERT_EQ(opened(map, smallMap()), "");
    EXPECT_EQ(map.file().attribution(), "Drawn by hand.\n");
    EXPECT_EQ(map.file().made(), 20260102U);
    const struct {
        double lat, lon;
        bool land;
    } cases[] = {
        {5, 5, false},
        {15, 15, true},
        {25, 25, false},
        {45, 45, true},
        {65, 65, false},
        {75, 75, true},
        {85, 85, false},
        {10, 100, true},
        {90, 179.9, true},
        {89.9, -180, false},
        {0, 180, false},
        {-90, 0, false},
        {-1, 100, false},
    };
    for (const auto& one : cases) EXPECT_EQ(map.isLand(0, at(one.lat, one.lon)), one.land) << one.lat << " " << one.lon;
    EXPECT_TRUE(map.isLand(1, at(-75, 15)));
    EXPECT_FALSE(map.isLand(1, at(15, 15)));

    EXPECT_EQ(map.file().sheetFor(SheetKind::Land, 999.9), 1U);
    EXPECT_EQ(map.file().sheetFor(SheetKind::Land, 1000), 0U);
    EXPECT_EQ(map.file().sheetFor(SheetKind::Rivers, 5000), 2U) << "better a fine one than none";
    EXPECT_EQ(map.file().sheetFor(SheetKind::Borders, 1), std::nullopt);
    const auto river = map.tile(2, 7);
    EXPECT_EQ(river->kinds, std::vector<std::uint8_t>{2});
    EXPECT_EQ(river->part(0).back(), (LatticePoint{899, 1}));
    EXPECT_EQ((*map.relief(5))[181], 500);
    EXPECT_EQ((*map.relief(5))[182], 0);
    EXPECT_EQ((*map.relief(6))[181], 0);
    const auto towns = map.towns(townCellOf(at(48, 11)));
    ASSERT_EQ(towns->size(), 2U);
    EXPECT_EQ((*towns)[0].name, "München");
    EXPECT_TRUE((*towns)[0].seat);
    EXPECT_NEAR((*towns)[0].population, 1260000, 60000);
    EXPECT_NEAR((*towns)[0].position.lat * kRadToDeg, 48.1, 1e-4);
    EXPECT_NEAR((*towns)[0].position.lon * kRadToDeg, 11.6, 1e-4);
    EXPECT_TRUE(map.problems().empty());
}

TEST(BaseMap, ADamagedTileIsLeftOutAndNamedOnce) {
    std::string bytes = smallMap();
    BaseMap whole;
    ASSERT_EQ(opened(whole, bytes), "");
    const auto place = whole.file().extent(whole.file().sheets()[0], 6);
    bytes[place.at + 1] = '\x7F';  // more points than there are bytes
    BaseMap map;
    ASSERT_EQ(opened(map, bytes), "");
    EXPECT_FALSE(map.isLand(0, at(15, 15)));
    EXPECT_TRUE(map.isLand(0, at(15, 100))) << "its neighbours stand";
    EXPECT_FALSE(map.isLand(0, at(15, 15)));
    ASSERT_EQ(map.problems().size(), 1U);
    EXPECT_EQ(
        map.problems()[0], "small.map: the tile at byte " + std::to_string(place.at) + " is damaged and left out");
    ASSERT_EQ(opened(map, smallMap()), "");
    EXPECT_TRUE(map.problems().empty()) << "of the file before";
}

TEST(BaseMap, NoDamageDoesAnyHarm) {
    const std::string good = smallMap();
    for (std::size_t size = 0; size < good.size(); size += size < 200 ? 1 : 97) {
        BaseMap map;
        EXPECT_NE(opened(map, good.substr(0, size)), "") << size;
        EXPECT_FALSE(map.isOpen());
    }
    BaseMap grown;
    EXPECT_EQ(opened(grown, good + "x"), "small.map is not as long as it says: it was cut off or added to");
    const std::size_t head = good.size() - 200;  // the tiles stand at the end
    for (std::size_t i = 0; i < good.size(); i += i < 200 || i > head ? 1 : 151) {
        for (const char other : {'\0', '\x7F', '\xFF'}) {
            std::string bytes = good;
            if (bytes[i] == other) continue;
            bytes[i] = other;
            BaseMap map;
            if (i < head - 4000) { EXPECT_NE(opened(map, bytes), "") << i; }
            if (opened(map, vouchedFor(bytes)).empty()) readAll(map);
        }
    }
}

TEST(BaseMap, MemoryIsBounded) {
    BaseMapWriter writer(20260102, "");
    MapTile big;
    std::vector<LatticePoint> ring;
    for (std::uint16_t i = 0; i < 50000; ++i) ring.push_back({i, static_cast<std::uint16_t>(i % 7)});
    big.add(ring);
    const MapSheet sheet{SheetKind::Land, 60, 1000, 0, 0, 100};
    writer.addSheet(sheet, std::vector<BinState>(18, BinState::Mixed), std::vector<std::string>(18, encodeTile(big)));
    BaseMap map;
    ASSERT_EQ(opened(map, writer.bytes()), "");
    const auto first = map.tile(0, 0);
    for (int round = 0; round < 100; ++round) {
        (void)map.tile(0, round % 18);
        EXPECT_LE(map.cachedBytes(), BaseMap::kCacheBytes + first->bytes());
    }
    EXPECT_EQ(first->points.size(), 50000U) << "good as long as it is held";
}

/// The share of the Earth that a sheet calls land.
double landShare(BaseMap& map, std::size_t sheet) {
    const MapSheet& row = map.file().sheets()[sheet];
    double land = 0;
    double all = 0;
    for (int bin = 0; bin < row.bins(); ++bin) {
        const double width = std::cos(((bin / row.columns() + 0.5) * row.binDegrees - 90) * kDegToRad);
        double area = map.file().state(row, bin) == BinState::Land ? 1 : 0;
        const auto tile = map.tile(sheet, bin);
        for (std::size_t i = 0; i < tile->parts(); ++i) {
            LatticePoint from = tile->part(i).back();
            for (const LatticePoint to : tile->part(i)) {
                area += (static_cast<double>(from.x) * to.y - static_cast<double>(to.x) * from.y) / 2 / row.steps() /
                        row.steps();
                from = to;
            }
        }
        EXPECT_TRUE(area > -1e-3 && area < 1 + 1e-3) << sheet << " " << bin;
        all += width;
        land += area * width;
    }
    return land / all;
}

TEST(BaseMap, TheWorldThatComesAlong) {
    BaseMap map;
    ASSERT_EQ(map.open(KORVEL_WORLD_MAP), "");
    EXPECT_NE(map.file().attribution().find("GeoNames"), std::string::npos);
    const struct {
        const char* name;
        double lat, lon;
        bool land;
    } places[] = {
        {"Viti Levu", -17.8, 178, true},
        {"Vanua Levu", -16.6, 179.2, true},
        {"Koro Sea", -17.8, 179.6, false},
        {"Taveuni, beyond 180", -16.85, -179.95, true},
        {"Caspian Sea", 42, 51, false},
        {"Rome", 41.903, 12.453, true},
        {"Lake Geneva", 46.45, 6.55, false},
        {"South Pole", -90, 0, true},
        {"North Pole", 90, 0, false},
        {"Gulf of Guinea", 0, 0, false},
        {"Jutland", 56, 9, true},
        {"Lake Victoria", -1, 33, false},
        {"Seattle", 47.6, -122.2, true},
    };
    for (std::size_t sheet = 0; sheet < map.file().sheets().size(); ++sheet) {
        if (map.file().sheets()[sheet].kind != SheetKind::Land) continue;
        EXPECT_NEAR(landShare(map, sheet), 0.29, 0.005);
        for (const auto& place : places)
            EXPECT_EQ(map.isLand(sheet, at(place.lat, place.lon)), place.land) << place.name << " " << sheet;
    }
    readAll(map);
    std::size_t towns = 0;
    for (int cell = 0; cell < kTownColumns * kTownRows; ++cell) towns += map.towns(cell)->size();
    EXPECT_GT(towns, 100000U);
    EXPECT_EQ(map.towns(townCellOf(at(48.1, 11.6)))->front().name, "Munich");
    // Mont Blanc's cell, kilometres too low as the whole relief; the sea beside Genoa.
    const auto alps = map.relief((45 + 90) / 15 * kReliefColumns + 180 / 15);
    EXPECT_NEAR((*alps)[static_cast<std::size_t>(10 * kReliefCells + 82)] * kReliefStepM, 2700, 600);
    // Water at 0 ft, a fjord's too, and lakes that lie higher.
    MapSea sea(&map);
    for (const auto& [lat, lon] : {std::pair{0.0, 0.0}, {60.4, 6.5}, {47.6, -122.95}, {37.7, -122.3}, {0.0, 180.0}})
        EXPECT_TRUE(sea.isAt(at(lat, lon))) << lat;
    for (const auto& [lat, lon] : {std::pair{47.7, -87.5}, {39.1, -120.04}, {-1.0, 33.0}, {57.3, -4.45},
             {-45.2, 167.75}, {43.6, -78.0}, {-41.15, -72.8}, {48.1, 11.6}})
        EXPECT_FALSE(sea.isAt(at(lat, lon))) << lat;
    EXPECT_TRUE(map.problems().empty());
}

}}  // namespace korvel
