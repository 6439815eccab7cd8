#pragma once

#include "map/feeds/TrackLevels.h"
#include "map/feeds/ViewFeed.h"

namespace korvel {

/// Keeps CockpitData::track thinned for every range.
class TrackFeed final : public ViewFeed {
 public:
    bool update(const FeedRequest& request) override;
    bool isComplete() const override { return true; }
    void forget() override { levels_ = {}; }
    void addTo(MapContent& content) const override;

 private:
    TrackLevels levels_;
};

}  // namespace korvel
