#include "map/feeds/ObstacleFeed.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <functional>
#include <unordered_map>
#include <utility>

#include "cockpit/PlaceClass.h"
#include "config/Settings.h"
#include "geo/Geodesy.h"
#include "ground/obstacles/ObstacleSet.h"
#include "map/MapContent.h"

namespace korvel {
namespace {

constexpr double kRoomAround = 1.3;  ///< times the view's radius
constexpr int kFeetPerStep = 100;    ///< of the setting "MinObsHt"
constexpr double kGroupNm = 100 / 1852.0;
constexpr double kGroupDegrees = kGroupNm / 60;

}  // namespace

bool ObstacleFeed::update(const FeedRequest& request) {
    const MapPlaceOptions options = MapPlaceOptions::from(request.settings);
    const MapView& view = request.view;
    const bool otherHeights =
        std::exchange(heights_, options.labels(PlaceLayerBit::Terrain)) != heights_;
    const double pixelsPerNm = view.projection.pixelsPerNm();
    if (set_ == nullptr || view.rangeNm > kObstaclesToNm || pixelsPerNm <= 0 ||
        !options.shows(PlaceLayerBit::Terrain) || options.shows(PlaceLayerBit::HideObstacles))
        return drop();
    const Point middle{view.area.width / 2, view.area.height / 2};
    const GeoPoint center = view.projection.unproject(middle);
    const double radiusNm = std::hypot(middle.x, middle.y) / pixelsPerNm;
    const int leastFt = request.settings.minObstacleHeight * kFeetPerStep;
    if (fetched_ && fetched_->leastFt == leastFt && fetched_->revision == set_->revision() &&
        fetched_->radiusNm <= 2 * kRoomAround * radiusNm &&
        DistanceNm(fetched_->center, center) + radiusNm <= fetched_->radiusNm)
        return otherHeights;
    fetched_ = Fetched{center, radiusNm * kRoomAround, leastFt, set_->revision()};
    obstacles_.clear();
    for (const ObstacleSet::Near& near : set_->near(center, fetched_->radiusNm))
        if (near.obstacle->aglFt >= leastFt)
            obstacles_.push_back(*near.obstacle);
    std::ranges::stable_sort(obstacles_, std::greater(), &Obstacle::topFt);
    keepFirstOfGroups(obstacles_);
    if (obstacles_.size() > kMostObstaclesAround)
        obstacles_.resize(kMostObstaclesAround);
    return true;
}

bool ObstacleFeed::drop() {
    fetched_.reset();
    const bool had = !obstacles_.empty();
    obstacles_.clear();
    return had;
}

bool ObstacleFeed::hasNews() const {
    return set_ != nullptr && fetched_ && fetched_->revision != set_->revision();
}

void ObstacleFeed::addTo(MapContent& content) const {
    content.obstacleHeights = heights_;
    if (fetched_)
        content.obstacles = &obstacles_;
}

void keepFirstOfGroups(std::vector<Obstacle>& obstacles) {
    // Rows as high as a group is wide: who is near lies in the same one or in a neighbour.
    const auto rowOf = [](const GeoPoint& point) {
        return static_cast<std::int64_t>(std::floor(point.lat * kRadToDeg / kGroupDegrees));
    };
    std::unordered_map<std::int64_t, std::vector<GeoPoint>> kept;
    std::erase_if(obstacles, [&](const Obstacle& obstacle) {
        const std::int64_t row = rowOf(obstacle.position);
        for (std::int64_t near = row - 1; near <= row + 1; ++near)
            if (const auto others = kept.find(near); others != kept.end())
                for (const GeoPoint& other : others->second)
                    if (DistanceNm(other, obstacle.position) <= kGroupNm)
                        return true;
        kept[row].push_back(obstacle.position);
        return false;
    });
}

}  // namespace korvel
