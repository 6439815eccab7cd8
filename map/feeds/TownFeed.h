#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "ground/basemap/Towns.h"
#include "map/feeds/ViewFeed.h"
#include "map/ground/GroundGrid.h"

namespace korvel {

class BaseMap;

/// How much a town counts: its inhabitants, ten times those of a capital.
std::uint64_t weightOf(const Town& town);

/// What a town must weigh to show at a range in nautical miles, where there are enough of them. In
/// lonely country a fifth of it will do.
std::uint64_t leastWeight(int rangeNm);
inline constexpr std::uint64_t kLonelyShare = 5;

/// The towns around the view that could show at its range, the weightiest first. Fetched for an
/// area larger than the view, so that most updates have nothing to do.
class TownFeed final : public ViewFeed {
 public:
    /// Null for none; it must outlive this.
    explicit TownFeed(BaseMap* map) : map_(map) {}

    bool update(const FeedRequest& request) override;
    bool isComplete() const override { return true; }
    void forget() override { fetched_.reset(); }
    void addTo(MapContent& content) const override;

 private:
    /// What the towns are good for.
    struct Fetched {
        int rangeNm = 0;
        GroundGrid::Box box;
    };

    void fetch(const GroundGrid::Box& box, int rangeNm);

    BaseMap* map_;
    std::optional<Fetched> fetched_;
    bool wanted_ = false;  ///< the settings show them
    std::vector<Town> towns_;
};

}  // namespace korvel
