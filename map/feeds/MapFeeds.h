#pragma once

#include <array>

#include "map/feeds/PlaceFeed.h"
#include "map/feeds/TrackFeed.h"
#include "map/feeds/ViewFeed.h"

namespace korvel {

/// All that comes to the map from around the view, as one: a new feed is a member here and a row in
/// the list of them.
class MapFeeds {
 public:
    /// The database must outlive this.
    explicit MapFeeds(const NavDatabase& database) : places_(database) {}

    /// Call before each frame; true when something has changed.
    bool update(const FeedRequest& request);
    bool isComplete() const;
    void forget();
    /// Hands what they hold to a frame.
    void addTo(MapContent& content) const;

    /// What a finger may touch.
    const PlaceSet& places() const { return places_.set(); }

 private:
    PlaceFeed places_;
    TrackFeed track_;
    std::array<ViewFeed*, 2> all_{&places_, &track_};
};

}  // namespace korvel
