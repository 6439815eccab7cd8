#include <zlib.h>

#include <gtest/gtest.h>

#include "TempFolder.h"
#include "geo/Geodesy.h"
#include "ground/terrain/TileFolder.h"
#include "ground/terrain/Unpack.h"

namespace korvel { namespace {

GeoPoint at(double lat, double lon) { return {lat * kDegToRad, lon * kDegToRad}; }

/// A plane that rises to the east and, half as steeply, to the north: `west` metres in the south-west, 2 and 1 a post.
std::string plane(int side, int west, int voidRow = -1, int voidColumn = -1) {
    std::string bytes;
    for (int row = 0; row < side; ++row) {
        for (int column = 0; column < side; ++column) {
            int height = west + 2 * column + (side - 1 - row);
            if (row == voidRow && column == voidColumn) height = HgtTile::kUnknown;
            bytes += static_cast<char>(static_cast<unsigned>(height) >> 8U & 0xFFU);
            bytes += static_cast<char>(static_cast<unsigned>(height) & 0xFFU);
        }
    }
    return bytes;
}

std::string deflated(const std::string& bytes, int window) {
    z_stream stream{};
    deflateInit2(&stream, 9, Z_DEFLATED, window, 9, Z_DEFAULT_STRATEGY);
    std::string input = bytes;
    std::string result(bytes.size() + 1000, '\0');
    stream.next_in = reinterpret_cast<Bytef*>(input.data());
    stream.avail_in = static_cast<uInt>(input.size());
    stream.next_out = reinterpret_cast<Bytef*>(result.data());
    stream.avail_out = static_cast<uInt>(result.size());
    deflate(&stream, Z_FINISH);
    result.resize(result.size() - stream.avail_out);
    deflateEnd(&stream);
    return result;
}

/// As zip files are: an entry that leaves its size to the directory behind it.
std::string zipped(const std::string& bytes) {
    const std::string packed = deflated(bytes, -15);
    const auto word = [](std::size_t value, int count) {
        std::string text;
        for (int i = 0; i < count; ++i) text += i < 8 ? static_cast<char>(value >> (8 * i) & 0xFFU) : '\0';
        return text;
    };
    const std::string name = "N47E008.hgt";
    std::string file = "PK" + word(0x0403, 2) + word(20, 2) + word(8, 2) + word(8, 2) + word(0, 16) +
                       word(name.size(), 2) + word(0, 2);
    file += name + packed;
    const std::size_t directory = file.size();
    file += "PK" + word(0x0201, 2) + word(20, 2) + word(20, 2) + word(8, 2) + word(8, 2) + word(0, 8) +
            word(packed.size(), 4);
    file += word(bytes.size(), 4) + word(name.size(), 2) + word(0, 16) + name;
    return file + "PK" + word(0x0605, 2) + word(0, 8) + word(46 + name.size(), 4) + word(directory, 4) + word(0, 2);
}

TEST(Terrain, NamesOfTilesInAllQuadrants) {
    const struct {
        const char* name;
        std::optional<TileCorner> corner;
    } cases[] = {
        {"N47E008.hgt", TileCorner{47, 8}},
        {"s01w180.SRTMGL1.hgt.zip", TileCorner{-1, -180}},
        {"N00E000.hgt.gz", TileCorner{0, 0}},
        {"S90E179.hgt", TileCorner{-90, 179}},
        {"N90E008.hgt", {}},
        {"N47E180.hgt", {}},
        {"N47X008.hgt", {}},
        {"47N008E", {}},
        {"N47E008.jpg", {}},
        {"", {}},
    };
    for (const auto& one : cases) EXPECT_EQ(tileOfName(one.name), one.corner) << one.name;
    EXPECT_EQ(nameOfTile({-1, -180}), "S01W180");
    EXPECT_EQ(nameOfTile({47, 8}), "N47E008");
    EXPECT_EQ(tileOf(at(-0.5, -0.5)), (TileCorner{-1, -1}));
    EXPECT_EQ(tileOf(at(47, 8)), (TileCorner{47, 8}));
    EXPECT_EQ(tileOf(at(90, 180)), (TileCorner{89, -180}));
}

TEST(Terrain, HeightsBetweenThePosts) {
    for (const int side : {1201, 3601}) {
        HgtTile tile;
        ASSERT_EQ(tile.read(plane(side, -100, side - 3, 5), {-3, -70}), "");
        EXPECT_EQ(tile.side(), side);
        const double step = 1.0 / (side - 1);
        const struct {
            double lat, lon, height;
        } cases[] = {
            {-3, -70, -100},
            {-3, -69, -100 + 2.0 * (side - 1)},
            {-2, -70, -100 + 1.0 * (side - 1)},
            {-2.5, -69.5, -100 + 1.5 * (side - 1)},
            {-3 + 0.25 * step, -70 + 0.5 * step, -98.75},
        };
        for (const auto& one : cases)
            EXPECT_NEAR(tile.heightM(at(one.lat, one.lon)).value_or(1e9), one.height, 0.01)
                << one.lat << " " << one.lon;
        EXPECT_FALSE(tile.heightM(at(-3 + 2.5 * step, -70 + 5.5 * step))) << "beside a void";
        EXPECT_TRUE(tile.heightM(at(-3 + 4.5 * step, -70 + 5.5 * step)));
        EXPECT_FALSE(tile.heightM(at(-1.99, -69.5)));
    }
}

TEST(Terrain, PackedAndDamagedFiles) {
    const std::string plain = plane(1201, 7);
    const std::string gzip = deflated(plain, 15 + 16);
    const std::string zip = zipped(plain);
    for (const std::string& bytes : {plain, gzip, zip}) {
        HgtTile tile;
        EXPECT_EQ(tile.read(bytes, {47, 8}), "");
        EXPECT_NEAR(tile.heightM(at(47, 8)).value_or(0), 7, 0.01);
        for (const std::size_t size :
            {bytes.size() - 1, bytes.size() / 2, std::size_t{40}, std::size_t{3}, std::size_t{0}}) {
            EXPECT_NE(tile.read(bytes.substr(0, size), {47, 8}), "") << size;
            EXPECT_EQ(tile.side(), 0);
        }
    }
    EXPECT_EQ(unpacked(deflated(std::string(50000, 'x'), 31), 49999), std::nullopt) << "a bomb";
    EXPECT_EQ(unpacked(deflated(std::string(50000, 'x'), 31), 50000), std::string(50000, 'x'));
    HgtTile odd;
    EXPECT_EQ(odd.read("12345678", {0, 0}), "Not a tile of heights of 1 or 3 arc seconds: 8 bytes");
}

TEST(Terrain, FoldersOfTiles) {
    const TempFolder first;
    const TempFolder second;
    first.write("n47e008.hgt", plane(1201, 100));
    first.write("N47E010.hgt", "cut");
    first.write("N47E011.txt", plane(1201, 0));
    second.write("N47E008.hgt", plane(1201, 900));
    second.write("N47E009.SRTMGL1.hgt.zip", zipped(plane(1201, 500)));
    TileFolder tiles(std::vector{first.path(), second.path(), first / "none"});
    for (int round = 0; round < 2; ++round) {
        EXPECT_NEAR(tiles.heightAt(at(47, 8)).value().metres, 100, 0.01);
        EXPECT_EQ(tiles.heightAt(at(47, 8.5)).value().file, "n47e008.hgt");
        EXPECT_NEAR(tiles.heightAt(at(47, 9)).value().metres, 500, 0.01);
        EXPECT_FALSE(tiles.heightAt(at(47, 10)));
        EXPECT_TRUE(tiles.hasTile(at(47, 10)));
        EXPECT_FALSE(tiles.heightAt(at(47, 11)));
        EXPECT_FALSE(tiles.hasTile(at(47, 11)));
    }
    EXPECT_EQ(tiles.takeProblems().front(), "N47E010.hgt: Not a tile of heights of 1 or 3 arc seconds: 3 bytes");
}

}}  // namespace korvel
