#pragma once

#include <cstdint>
#include <memory>
#include <optional>

#include "cockpit/GroundData.h"
#include "config/Text.h"
#include "map/feeds/ViewFeed.h"
#include "map/ground/GroundPicture.h"

namespace korvel {

/// Hands the ground to the map. The base map's tiles are read as the picture is drawn, which takes
/// less than a frame anywhere; the tiles of heights are read elsewhere and come when they are
/// there.
class GroundFeed final : public ViewFeed {
 public:
    explicit GroundFeed(const GroundSources& sources);

    bool update(const FeedRequest& request) override;
    bool isComplete() const override { return true; }
    bool hasNews() const override;
    void forget() override;
    void addTo(MapContent& content) const override;

    /// Null for none.
    [[nodiscard]] const GroundPicture* picture() const { return picture_.get(); }

 private:
    bool updateTerrain(const FeedRequest& request);
    bool updateBands(const FeedRequest& request);
    [[nodiscard]] bool knowsAll(const std::vector<TileCorner>& corners) const;

    [[nodiscard]] std::uint64_t airspaceRevision() const;

    const AirspaceSet* airspaces_;
    TerrainStore* terrain_;
    std::unique_ptr<GroundPicture> picture_;
    std::uint64_t seenTerrain_ = 0;    ///< its revision
    std::uint64_t seenAirspaces_ = 0;  ///< theirs
    std::optional<double> bandsAtFt_;  ///< by which ground is coloured now
    const Text* note_ = nullptr;       ///< why it is not, or not all; null for nothing to tell
};

}  // namespace korvel
