#include "ground/profile/GroundAlong.h"

#include <algorithm>
#include <cmath>

#include "geo/Geodesy.h"
#include "ground/basemap/BaseMap.h"
#include "ground/terrain/TerrainStore.h"

namespace korvel {
namespace {

/// The sea of the base map, by its finest coasts: others lack islands. A lake is no land either,
/// but lies higher: there the coarse heights of the base map tell.
class Sea {
 public:
    explicit Sea(BaseMap* map) : map_(map) {
        if (map_ != nullptr && map_->isOpen())
            sheet_ = map_->file().sheetFor(SheetKind::Land, 0);
    }
    bool isAt(GeoPoint point) {
        return sheet_ && map_->file().hasRelief() && !map_->isLand(*sheet_, point) &&
               coarseHeight(point) == 0;
    }

 private:
    int coarseHeight(GeoPoint point) {
        const auto cell = [](double degrees, int most) {
            return std::clamp(static_cast<int>(degrees * kReliefCellsPerDegree), 0, most - 1);
        };
        const int row = cell(point.lat * kRadToDeg + 90, kReliefRows * kReliefCells);
        const int column = cell(point.lon * kRadToDeg + 180, kReliefColumns * kReliefCells);
        const auto tile = map_->relief(row / kReliefCells * kReliefColumns + column / kReliefCells);
        const int place = row % kReliefCells * kReliefCells + column % kReliefCells;
        return (*tile)[static_cast<std::size_t>(place)];
    }

    BaseMap* map_;
    std::optional<std::size_t> sheet_;
};

}  // namespace

std::vector<GroundSample> groundAlong(const ProfileLine& line, const TerrainStore* terrain,
                                      BaseMap* map) {
    std::vector<GroundSample> samples;
    samples.reserve(line.points.size());
    Sea sea(map);
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
