#pragma once

// How what is around the view comes to the map.

#include "map/MapView.h"

namespace korvel {

struct CockpitData;
struct MapContent;
struct Settings;

/// What a feed goes by.
struct FeedRequest {
    MapView view;
    const CockpitData& data;
    const Settings& settings;
};

/// Holds what the map draws of one kind of thing around the view (places, the track), and fetches
/// it a piece at a time, so that no frame waits for a file. User-interface thread only.
class ViewFeed {
 public:
    ViewFeed() = default;
    ViewFeed(const ViewFeed&) = delete;
    ViewFeed& operator=(const ViewFeed&) = delete;
    virtual ~ViewFeed() = default;

    /// Fetches the next piece for this view; true when something has changed, so that the map has
    /// to be drawn anew. Takes a few milliseconds at most.
    virtual bool update(const FeedRequest& request) = 0;
    /// Whether all that the last view shows is there; until then update() has more to do.
    virtual bool isComplete() const = 0;
    /// Whether something has come by itself since the last update: the map is worth drawing anew.
    virtual bool hasNews() const { return false; }
    /// Drops everything: what it is fetched from was loaded anew.
    virtual void forget() = 0;

    /// Hands what it holds to a frame, which must not outlive it nor its next update.
    virtual void addTo(MapContent& content) const = 0;
};

}  // namespace korvel
