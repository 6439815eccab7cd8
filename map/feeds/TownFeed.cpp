#include "map/feeds/TownFeed.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "cockpit/PlaceClass.h"
#include "config/Settings.h"
#include "geo/Geodesy.h"
#include "ground/basemap/BaseMap.h"
#include "map/MapContent.h"

namespace korvel {
namespace {

constexpr std::uint64_t kCapitalTimes = 10;
constexpr double kRoomAround = 0.2;  ///< of the view, to each side

struct WeightRow {
    int toRangeNm;
    std::uint64_t least;
};
constexpr std::array kWeights{
    WeightRow{8, 1000},   WeightRow{15, 2000},    WeightRow{25, 5000},    WeightRow{40, 20000},
    WeightRow{65, 50000}, WeightRow{100, 100000}, WeightRow{250, 500000}, WeightRow{500, 1000000}};
constexpr std::uint64_t kFarOut = 3000000;

bool contains(const GroundGrid::Box& outer, const GroundGrid::Box& inner) {
    return inner.south >= outer.south && inner.north <= outer.north && inner.west >= outer.west &&
           inner.east <= outer.east;
}

GroundGrid::Box grownBox(const GroundGrid::Box& box) {
    const double up = (box.north - box.south) * kRoomAround;
    const double across = (box.east - box.west) * kRoomAround;
    return {box.south - up, box.west - across, box.north + up, box.east + across};
}

int cellLine(double degrees) { return static_cast<int>(std::floor(degrees / kTownCellDegrees)); }

}  // namespace

std::uint64_t weightOf(const Town& town) {
    return town.population * (town.capital ? kCapitalTimes : 1);
}

std::uint64_t leastWeight(int rangeNm) {
    const auto* const row = std::ranges::find_if(
        kWeights, [rangeNm](const WeightRow& each) { return rangeNm <= each.toRangeNm; });
    return row == kWeights.end() ? kFarOut : row->least;
}

bool TownFeed::update(const FeedRequest& request) {
    const MapPlaceOptions options = MapPlaceOptions::from(request.settings);
    wanted_ = options.shows(PlaceLayerBit::BaseMap) && options.labels(PlaceLayerBit::BaseMap) &&
              !options.shows(PlaceLayerBit::HideTowns);
    if (map_ == nullptr || !map_->isOpen() || !wanted_)
        return false;
    const GroundGrid grid(request.view.projection, {0, 0}, 1);
    if (!grid.isFlat()) {
        towns_.clear();
        fetched_.reset();
        return false;
    }
    const GroundGrid::Box box = grid.box(request.view.area.right(), request.view.area.bottom());
    if (fetched_ && fetched_->rangeNm == request.view.rangeNm && contains(fetched_->box, box))
        return false;
    fetched_ = Fetched{request.view.rangeNm, grownBox(box)};
    fetch(fetched_->box, request.view.rangeNm);
    return true;
}

void TownFeed::fetch(const GroundGrid::Box& box, int rangeNm) {
    towns_.clear();
    const std::uint64_t least = leastWeight(rangeNm) / kLonelyShare;
    const int lastRow = std::min(cellLine(box.north + 90), kTownRows - 1);
    const int first = cellLine(box.west + 180);
    const int last = std::min(cellLine(box.east + 180), first + kTownColumns - 1);
    for (int row = std::max(cellLine(box.south + 90), 0); row <= lastRow; ++row) {
        for (int column = first; column <= last; ++column) {
            const int place = (column % kTownColumns + kTownColumns) % kTownColumns;
            for (const Town& town : *map_->towns(row * kTownColumns + place))
                if (weightOf(town) >= least)
                    towns_.push_back(town);
        }
    }
    std::ranges::stable_sort(
        towns_, [](const Town& a, const Town& b) { return weightOf(a) > weightOf(b); });
}

void TownFeed::addTo(MapContent& content) const {
    if (fetched_ && wanted_)
        content.towns = &towns_;
}

}  // namespace korvel
