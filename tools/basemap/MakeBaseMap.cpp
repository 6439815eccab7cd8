// Makes the base map of the world out of its sources: see scripts/make-base-map.
#include <array>
#include <exception>
#include <filesystem>
#include <iostream>
#include <map>
#include <string>

#include "base/TextNumbers.h"
#include "ground/basemap/BaseMapWriter.h"
#include "platform/FileIo.h"
#include "tools/basemap/BinRings.h"
#include "tools/basemap/CityList.h"
#include "tools/basemap/Gshhg.h"
#include "tools/basemap/ReliefGrid.h"

namespace korvel::making {
namespace {

constexpr std::string_view kAttribution =
    "Coasts, lakes, rivers and borders: GSHHG 2.3.7, Paul Wessel and Walter H. F. Smith, "
    "1994-2017, "
    "LGPL 3 or later.\n"
    "Towns: GeoNames, www.geonames.org, CC BY 4.0.\n"
    "Relief: ETOPO5, NOAA National Geophysical Data Center, public domain.\n";

/// A sheet and what it is made of.
struct Recipe {
    MapSheet sheet;
    std::string_view file;
    double leastKm2 = 0;  ///< shores around less are left out
    int fromKind = 0;     ///< of rivers and borders
    int toKind = 0;
};

constexpr std::uint32_t kAll = MapSheet::kNoLimit;

// A shore may lie a pixel off its source, rivers and borders likewise; bins are those of the
// source.
constexpr std::array kRecipes{
    Recipe{{SheetKind::Land, 1, 4096, 80, 0, 120}, "binned_GSHHS_f.nc", 0.02},
    Recipe{{SheetKind::Land, 2, 2048, 250, 120, 520}, "binned_GSHHS_h.nc", 0.2},
    Recipe{{SheetKind::Land, 5, 1024, 0, 520, 1300}, "binned_GSHHS_i.nc", 0},
    Recipe{{SheetKind::Land, 5, 512, 2000, 1300, 2700}, "binned_GSHHS_i.nc", 5},
    Recipe{{SheetKind::Land, 10, 256, 0, 2700, kAll}, "binned_GSHHS_l.nc", 0},
    Recipe{{SheetKind::Rivers, 2, 2048, 100, 0, 520}, "binned_river_h.nc", 0, 0, 4},
    Recipe{{SheetKind::Rivers, 5, 1024, 500, 520, 1300}, "binned_river_i.nc", 0, 0, 2},
    Recipe{{SheetKind::Rivers, 5, 512, 2000, 1300, kAll}, "binned_river_i.nc", 0, 0, 1},
    Recipe{{SheetKind::Borders, 1, 4096, 60, 0, 520}, "binned_border_f.nc", 0, 1, 2},
    Recipe{{SheetKind::Borders, 5, 1024, 500, 520, 1300}, "binned_border_i.nc", 0, 1, 2},
    Recipe{{SheetKind::Borders, 5, 512, 2000, 1300, kAll}, "binned_border_i.nc", 0, 1, 2},
};

struct Tiles {
    std::vector<BinState> states;
    std::vector<std::string> bytes;
};

Tiles landTiles(const World<ShoreBin>& world, const Recipe& recipe) {
    Tiles tiles;
    for (std::size_t bin = 0; bin < world.bins.size(); ++bin) {
        const int row = static_cast<int>(bin) / recipe.sheet.columns();
        const LandBin land = makeLandBin(world.bins[bin], recipe.sheet, row, recipe.leastKm2);
        tiles.states.push_back(land.state);
        tiles.bytes.push_back(land.state == BinState::Mixed ? encodeTile(land.tile) : "");
    }
    return tiles;
}

Tiles lineTiles(const World<LineBin>& world, const Recipe& recipe) {
    Tiles tiles;
    for (std::size_t bin = 0; bin < world.bins.size(); ++bin) {
        const int row = static_cast<int>(bin) / recipe.sheet.columns();
        const MapTile lines =
            makeLineBin(world.bins[bin], recipe.sheet, row, recipe.fromKind, recipe.toKind);
        tiles.states.push_back(lines.parts() > 0 ? BinState::Mixed : BinState::Sea);
        tiles.bytes.push_back(lines.parts() > 0 ? encodeTile(lines) : "");
    }
    return tiles;
}

void addSheet(BaseMapWriter& writer, const std::string& folder, const Recipe& recipe) {
    const std::string path = folder + "/" + std::string(recipe.file);
    Tiles tiles;
    int binDegrees = 0;
    if (recipe.sheet.kind == SheetKind::Land) {
        const auto world = readShores(path);
        binDegrees = world.binDegrees;
        if (binDegrees == recipe.sheet.binDegrees)
            tiles = landTiles(world, recipe);
    } else {
        const auto world = readLines(path);
        binDegrees = world.binDegrees;
        if (binDegrees == recipe.sheet.binDegrees)
            tiles = lineTiles(world, recipe);
    }
    if (binDegrees != recipe.sheet.binDegrees)
        throw std::runtime_error(path + ": bins of " + std::to_string(binDegrees) + " degrees");
    std::size_t size = 0;
    for (const std::string& tile : tiles.bytes)
        size += tile.size();
    std::cout << recipe.file << ", tolerance " << recipe.sheet.toleranceM << " m: " << size
              << " bytes\n";
    writer.addSheet(recipe.sheet, std::move(tiles.states), std::move(tiles.bytes));
}

int run(const std::vector<std::string>& words) {
    if (words.size() != 5) {
        std::cerr << "usage: korvel_basemap YYYYMMDD GSHHG-FOLDER ETOPO5.cdf cities.pbf OUT.map\n";
        return 2;
    }
    BaseMapWriter writer(static_cast<std::uint32_t>(ParseInt(words[0])), std::string(kAttribution));
    for (const Recipe& recipe : kRecipes)
        addSheet(writer, words[1], recipe);
    writer.setRelief(readRelief(words[2]));
    const auto cities = readWholeFile(words[3]);
    if (!cities)
        throw std::runtime_error(words[3] + " cannot be read");
    writer.setTowns(townCells(readCities(*cities)));
    if (!writeFileAtomically(words[4], writer.bytes()))
        throw std::runtime_error(words[4] + " cannot be written");
    return 0;
}

}  // namespace
}  // namespace korvel::making

int main(int argc, char** argv) {
    try {
        return korvel::making::run({argv + 1, argv + argc});
    } catch (const std::exception& error) {
        std::cerr << error.what() << '\n';
    }
    return 1;
}
