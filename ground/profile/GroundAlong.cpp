#include "ground/profile/GroundAlong.h"

#include <algorithm>

#include "geo/Geodesy.h"
#include "ground/basemap/MapSea.h"
#include "ground/terrain/TerrainStore.h"

namespace korvel {
std::vector<GroundSample> groundAlong(const ProfileLine& line, const TerrainStore* terrain,
                                      BaseMap* map) {
    std::vector<GroundSample> samples;
    samples.reserve(line.points.size());
    MapSea sea(map);
    for (const GeoPoint& point : line.points) {
        const GeoPoint place = wrapped(point);
        GroundSample sample;
        if (terrain != nullptr) {
            sample.highestFt = terrain->highestFt(place, line.stepNm / 2);
            sample.isKnown = terrain->heightFt(place).has_value();
        }
        const bool hasTile =
            terrain != nullptr && terrain->tile(tileOf(place)).state != TerrainStore::State::None;
        if (!hasTile && sea.isAt(place)) {
            sample.highestFt = std::max(sample.highestFt.value_or(0), 0.0);
            sample.isKnown = sample.isSea = true;
        }
        samples.push_back(sample);
    }
    return samples;
}

std::vector<TileCorner> tilesAlong(const ProfileLine& line) {
    std::vector<TileCorner> corners;
    for (const GeoPoint& point : line.points) {
        const TileCorner corner = tileOf(wrapped(point));
        if (std::ranges::find(corners, corner) == corners.end())
            corners.push_back(corner);
    }
    return corners;
}

}  // namespace korvel
