#include "ground/GroundFile.h"

#include <algorithm>

#include "base/Ascii.h"
#include "geo/Geodesy.h"
#include "ground/airspace/OpenAir.h"
#include "ground/basemap/BaseMapFile.h"
#include "ground/obstacles/ObstacleFile.h"
#include "ground/terrain/HgtTile.h"
#include "platform/PathText.h"

namespace korvel {
namespace {

constexpr AirspaceBox kWholeEarth{.south = -90, .west = -180, .north = 90, .east = 180};

/// Around both, where neither crosses the 180th meridian; all longitudes else.
AirspaceBox around(const AirspaceBox& a, const AirspaceBox& b) {
    AirspaceBox box{.south = std::min(a.south, b.south),
                    .west = std::min(a.west, b.west),
                    .north = std::max(a.north, b.north),
                    .east = std::max(a.east, b.east)};
    if (a.west > a.east || b.west > b.east) {
        box.west = kWholeEarth.west;
        box.east = kWholeEarth.east;
    }
    return box;
}

GroundFile inspectHeights(TileCorner corner, std::string_view bytes) {
    HgtTile tile;
    GroundFile found{.kind = GroundFileKind::Heights, .error = tile.read(bytes, corner)};
    found.count = static_cast<std::size_t>(tile.side());
    found.box = {.south = static_cast<double>(corner.south),
                 .west = static_cast<double>(corner.west),
                 .north = corner.south + 1.0,
                 .east = corner.west + 1.0};
    return found;
}

GroundFile inspectAirspaces(std::string_view bytes) {
    const OpenAirFile file = readOpenAir(bytes);
    GroundFile found{.kind = GroundFileKind::Airspaces,
                     .count = file.airspaces.size(),
                     .problems = file.problems.size()};
    for (const Airspace& airspace : file.airspaces)
        found.box = &airspace == &file.airspaces.front() ? airspace.box()
                                                         : around(found.box, airspace.box());
    return found;
}

GroundFile inspectObstacles(std::string_view bytes) {
    const ObstacleFile file = readObstacles(bytes);
    GroundFile found{.kind = GroundFileKind::Obstacles,
                     .count = file.obstacles.size(),
                     .problems = file.problems.size()};
    for (const Obstacle& obstacle : file.obstacles) {
        const double lat = obstacle.position.lat * kRadToDeg;
        const double lon = obstacle.position.lon * kRadToDeg;
        const AirspaceBox here{.south = lat, .west = lon, .north = lat, .east = lon};
        found.box = &obstacle == &file.obstacles.front() ? here : around(found.box, here);
    }
    return found;
}

}  // namespace

GroundFile inspectGroundFile(const std::filesystem::path& path, std::string_view bytes) {
    const std::string name = textOf(path.filename());
    if (endsWithIgnoringCase(name, ".map")) {
        BaseMapFile map;
        GroundFile found{.kind = GroundFileKind::BaseMap, .error = map.open(path)};
        found.box = kWholeEarth;
        found.madeYmd = map.made();
        return found;
    }
    if (const auto corner = tileOfName(name))
        return inspectHeights(*corner, bytes);
    if (looksLikeOpenAir(bytes))
        return inspectAirspaces(bytes);
    if (looksLikeObstacles(bytes))
        return inspectObstacles(bytes);
    return {};
}

}  // namespace korvel
