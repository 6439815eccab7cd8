#pragma once

#include <cstddef>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "cockpit/PlaceSet.h"
#include "map/feeds/ViewFeed.h"
#include "navdb/search/Place.h"

namespace korvel {

class NavDatabase;

/// Holds the places around the view for the map to draw. They are fetched for an area larger than
/// the view, and again only when the view leaves it or when what is to be shown changes. Full
/// records (runways, frequencies) are read a few at a time, the most important places' first, and
/// kept.
class PlaceFeed final : public ViewFeed {
 public:
    /// Records read by one update: they take a few milliseconds.
    static constexpr std::size_t kRecordsPerUpdate = 200;

    /// The database must outlive this.
    explicit PlaceFeed(const NavDatabase& database) : database_(database) {}

    bool update(const FeedRequest& request) override;
    bool isComplete() const override { return complete_; }
    void forget() override;
    void addTo(MapContent& content) const override;

    const PlaceSet& set() const { return set_; }

 private:
    using DetailsKey = std::pair<RowMatch, std::string>;

    void fetch(const GeoBox& box, int rangeNm, const MapPlaceOptions& options);
    void addFound(std::size_t most, int rangeNm);
    bool readDetails(int rangeNm);
    void giveVariations(int rangeNm);
    void rankPlaces();

    const NavDatabase& database_;
    PlaceSet set_;
    std::optional<GeoBox> fetched_;  ///< none before the first fetch
    int rangeNm_ = 0;                ///< that it was fetched for
    bool complete_ = false;
    std::map<DetailsKey, std::shared_ptr<const PlaceDetails>> details_;
    std::vector<Place> found_;  ///< kept for its memory
};

/// The area that a view around the aircraft's point can show when it turns by any angle, made
/// larger by a share of its radius. Goes all the way round near the poles.
GeoBox boxAround(const MapView& view, double share);

/// Whether `outer` holds all of `inner`.
bool holds(const GeoBox& outer, const GeoBox& inner);

}  // namespace korvel
