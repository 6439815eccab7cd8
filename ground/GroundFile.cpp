#include "ground/GroundFile.h"

#include <algorithm>
#include <utility>

#include "base/Ascii.h"
#include "geo/Geodesy.h"
#include "ground/DataFiles.h"
#include "ground/airspace/OpenAir.h"
#include "ground/basemap/BaseMapFile.h"
#include "ground/obstacles/ObstacleFile.h"
#include "ground/terrain/HgtTile.h"
#include "platform/PathText.h"

namespace korvel {
namespace {

constexpr std::string_view kTooLarge = "The file is larger than any of its kind";
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

/// What a file of `kind` holds, and the box around it all.
template <class File, class Things, class BoxOf>
GroundFile inspected(GroundFileKind kind, const File& file, const Things& things, BoxOf boxOf) {
    GroundFile found{.kind = kind, .count = things.size(), .problems = file.problems.size()};
    bool isFirst = true;
    for (const auto& thing : things) {
        const AirspaceBox box = boxOf(thing);
        found.box = std::exchange(isFirst, false) ? box : around(found.box, box);
    }
    return found;
}

GroundFile inspectAirspaces(std::string_view bytes) {
    if (bytes.size() > kLargestAirspaceFile)
        return {.kind = GroundFileKind::Airspaces, .error = std::string(kTooLarge)};
    const OpenAirFile file = readOpenAir(bytes);
    return inspected(GroundFileKind::Airspaces, file, file.airspaces,
                     [](const Airspace& airspace) { return airspace.box(); });
}

GroundFile inspectObstacles(std::string_view bytes) {
    if (bytes.size() > kLargestObstacleFile)
        return {.kind = GroundFileKind::Obstacles, .error = std::string(kTooLarge)};
    const ObstacleFile file = readObstacles(bytes);
    return inspected(GroundFileKind::Obstacles, file, file.obstacles, [](const Obstacle& obstacle) {
        const double lat = obstacle.position.lat * kRadToDeg;
        const double lon = obstacle.position.lon * kRadToDeg;
        return AirspaceBox{.south = lat, .west = lon, .north = lat, .east = lon};
    });
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
