#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "geo/GeoPoint.h"
#include "ground/obstacles/Obstacle.h"
#include "map/feeds/ViewFeed.h"

namespace korvel {

class ObstacleSet;

/// From here in obstacles show; farther out a view holds thousands.
inline constexpr int kObstaclesToNm = 25;

/// The obstacles around the view that the settings let show, the tallest first; a group of them is
/// one, its tallest. Fetched for an area larger than the view, so that most updates have nothing
/// to do.
class ObstacleFeed final : public ViewFeed {
 public:
    /// Null for none; it must outlive this.
    explicit ObstacleFeed(const ObstacleSet* set) : set_(set) {}

    bool update(const FeedRequest& request) override;
    bool isComplete() const override { return true; }
    bool hasNews() const override;
    void forget() override { fetched_.reset(); }
    void addTo(MapContent& content) const override;

    /// Empty while none show.
    [[nodiscard]] const std::vector<Obstacle>& shown() const { return obstacles_; }

 private:
    /// What the obstacles are good for.
    struct Fetched {
        GeoPoint center;
        double radiusNm = 0;
        int leastFt = 0;
        std::uint64_t revision = 0;
    };

    bool drop();

    const ObstacleSet* set_;
    std::optional<Fetched> fetched_;
    bool heights_ = true;  ///< the settings show them
    std::vector<Obstacle> obstacles_;
};

/// At most so many are kept around a view.
inline constexpr std::size_t kMostObstaclesAround = 3000;

/// Leaves of each group within 100 m the first one, without changing the order.
void keepFirstOfGroups(std::vector<Obstacle>& obstacles);

}  // namespace korvel
