#pragma once

#include "map/feeds/ViewFeed.h"
#include "map/ground/GroundPicture.h"

namespace korvel {

class BaseMap;

/// Hands the ground to the map. Its tiles are read as the picture is drawn, which takes less than a
/// frame anywhere; so there is nothing to wait for.
class GroundFeed final : public ViewFeed {
 public:
    /// Null for none; both must outlive this.
    explicit GroundFeed(BaseMap* map, const AirspaceSet* airspaces = nullptr);

    bool update(const FeedRequest& request) override;
    bool isComplete() const override { return true; }
    void forget() override;
    void addTo(MapContent& content) const override;

 private:
    std::unique_ptr<GroundPicture> picture_;
};

}  // namespace korvel
