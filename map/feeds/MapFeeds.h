#pragma once

#include <array>

#include "map/feeds/GroundFeed.h"
#include "map/feeds/ObstacleFeed.h"
#include "map/feeds/PlaceFeed.h"
#include "map/feeds/TownFeed.h"
#include "map/feeds/TrackFeed.h"
#include "map/feeds/ViewFeed.h"

namespace korvel {

/// All that comes to the map from around the view, as one: a new feed is a member here and a row in
/// the list of them.
class MapFeeds {
 public:
    /// The database must outlive this.
    explicit MapFeeds(const NavDatabase& database, const GroundSources& ground = {})
        : ground_(ground), towns_(ground.map), obstacles_(ground.obstacles), places_(database) {}

    /// Call before each frame; true when something has changed.
    bool update(const FeedRequest& request);
    bool isComplete() const;
    bool hasNews() const;
    void forget();
    /// Hands what they hold to a frame.
    void addTo(MapContent& content) const;

    /// What a finger may touch.
    const PlaceSet& places() const { return places_.set(); }
    /// Null for none.
    const GroundPicture* ground() const { return ground_.picture(); }
    const std::vector<Obstacle>& obstacles() const { return obstacles_.shown(); }

 private:
    GroundFeed ground_;
    TownFeed towns_;
    ObstacleFeed obstacles_;
    PlaceFeed places_;
    TrackFeed track_;
    std::array<ViewFeed*, 5> all_{&ground_, &towns_, &obstacles_, &places_, &track_};
};

}  // namespace korvel
