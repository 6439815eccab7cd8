#pragma once

#include <algorithm>
#include <string>
#include <vector>

#include "ground/basemap/BaseMapWriter.h"
#include "ground/basemap/CoarseRelief.h"
#include "ground/basemap/MapTile.h"
#include "ground/basemap/Towns.h"

namespace korvel {

/// A world of two continents and some lines, with sheets of 90 and 30 degrees.
inline std::string smallMap() {
    BaseMapWriter writer(20260102, "Drawn by hand.\n");
    const auto degrees = [](double lat, double lon) {
        constexpr double kRadians = 0.017453292519943295;
        return GeoPoint{lat * kRadians, lon * kRadians};
    };
    // Bins of 90 degrees from 90 S, 180 W: the fourth of the north is land, the third has an island
    // with a lake in it, and an island in that.
    const MapSheet far{SheetKind::Land, 90, 10, 0, 1000, MapSheet::kNoLimit};
    std::vector<BinState> states(8, BinState::Sea);
    std::vector<std::string> tiles(8);
    states[7] = BinState::Land;
    states[6] = BinState::Mixed;
    MapTile land;
    const auto square = [&land](std::uint16_t from, std::uint16_t to, bool water) {
        std::vector<LatticePoint> ring{{from, from}, {to, from}, {to, to}, {from, to}};
        if (water) std::reverse(ring.begin(), ring.end());
        land.add(ring);
    };
    square(100, 800, false);
    square(200, 700, true);
    square(300, 600, false);
    tiles[6] = encodeTile(land);
    writer.addSheet(far, states, tiles);
    // Finer, all sea but one bin.
    const MapSheet near{SheetKind::Land, 30, 100, 80, 0, 1000};
    states.assign(72, BinState::Sea);
    states[6] = BinState::Land;
    writer.addSheet(near, states, std::vector<std::string>(72));
    const MapSheet rivers{SheetKind::Rivers, 90, 10, 0, 0, 1000};
    states.assign(8, BinState::Sea);
    states[7] = BinState::Mixed;
    MapTile river;
    river.add(std::vector<LatticePoint>{{0, 0}, {900, 900}, {899, 1}});
    river.kinds = {2};
    tiles.assign(8, "");
    tiles[7] = encodeTile(river);
    writer.addSheet(rivers, states, tiles);
    ReliefTile hill{};
    hill[0] = 7;
    hill[181] = 500;
    hill.back() = 9;
    std::vector<std::string> heights(static_cast<std::size_t>(kReliefColumns) * kReliefRows);
    heights[5] = encodeRelief(hill);
    writer.setRelief(heights);
    std::vector<std::string> cells(static_cast<std::size_t>(kTownColumns) * kTownRows);
    const std::vector<Town> towns{
        {degrees(48.1, 11.6), 1260000, false, true, "München"}, {degrees(48.4, 11.7), 50000, false, false, "Freising"}};
    const int cell = townCellOf(towns[0].position);
    cells[static_cast<std::size_t>(cell)] = encodeTowns(towns, cell);
    writer.setTowns(cells);
    return writer.bytes();
}

}  // namespace korvel
