#include "map/feeds/GroundFeed.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

#include "cockpit/CockpitData.h"
#include "config/Settings.h"
#include "config/texts/StatusTexts.h"
#include "geo/Geodesy.h"
#include "ground/basemap/MapSea.h"
#include "map/MapContent.h"
#include "map/ground/TerrainField.h"

namespace korvel {
namespace {

/// Farther out a view has so many tiles that reading them would take minutes.
constexpr int kTerrainToNm = 100;
/// Pixels between the heights that the picture looks up.
constexpr double kPixelsPerHeight = 2;
/// Bands stay until the altitude has changed by so much, or their edges would flicker.
constexpr double kBandStepFt = 20;
constexpr int kRelative = 1;  ///< of the setting "AltMode"

/// At its middle and near its corners; there is no land in it.
bool isSeaWithin(MapSea& sea, TileCorner corner) {
    constexpr std::array kPlaces{std::pair{0.5, 0.5}, std::pair{0.1, 0.1}, std::pair{0.1, 0.9},
                                 std::pair{0.9, 0.1}, std::pair{0.9, 0.9}};
    return std::ranges::all_of(kPlaces, [&](const auto& place) {
        return sea.isAt({.lat = (corner.south + place.first) * kDegToRad,
                         .lon = (corner.west + place.second) * kDegToRad});
    });
}

}  // namespace

GroundFeed::GroundFeed(const GroundSources& sources)
    : airspaces_(sources.airspaces),
      terrain_(sources.terrain),
      picture_(sources.map != nullptr ? std::make_unique<GroundPicture>(*sources.map) : nullptr) {
    if (picture_)
        picture_->showAirspaces(airspaces_);
}

bool GroundFeed::update(const FeedRequest& request) {
    if (!picture_ || !picture_->map().isOpen())
        return false;
    const GroundParts parts = GroundParts::from(request.settings);
    const bool otherParts = picture_->parts() != parts;
    picture_->showParts(parts);
    const auto altitudes =
        altitudeWindow(request.data, request.settings.boundaryAltitude, picture_->altitudes());
    const bool otherAltitudes = picture_->altitudes() != altitudes;
    picture_->showAltitudes(altitudes);
    const bool otherTerrain = updateTerrain(request);
    const std::uint64_t airspaces = airspaceRevision();
    return std::exchange(seenAirspaces_, airspaces) != airspaces || otherParts || otherAltitudes ||
           otherTerrain;
}

std::uint64_t GroundFeed::airspaceRevision() const {
    return airspaces_ != nullptr ? airspaces_->revision() : 0;
}

bool GroundFeed::updateTerrain(const FeedRequest& request) {
    note_ = nullptr;
    if (terrain_ == nullptr || !picture_->parts().relief)
        return std::exchange(bandsAtFt_, std::nullopt).has_value();
    const bool near = request.view.rangeNm <= kTerrainToNm;
    const Rect area = GroundPicture::areaFor(request.view);
    const GroundGrid grid(request.view.projection, {area.x, area.y}, 1);
    std::vector<TileCorner> corners;
    if (near && grid.isFlat()) {
        const GroundGrid::Box box = grid.box(area.width, area.height);
        corners = tilesIn(box.south, box.west, box.north, box.east);
    }
    const bool relative = request.settings.altMode == kRelative;
    const bool otherBands = updateBands(request);
    if (relative && !near)
        note_ = &kStatusTexts.terrainNearOnly;
    else if (relative && !bandsAtFt_)
        note_ = &kStatusTexts.terrainNoAltitude;
    else if (relative && !knowsAll(corners))
        note_ = &kStatusTexts.terrainMissing;
    terrain_->want(TerrainStore::Purpose::Map, std::move(corners),
                   grid.metresPerPixel() * kPixelsPerHeight);
    picture_->showTerrain(near ? terrain_ : nullptr, near ? bandsAtFt_ : std::nullopt);
    const std::uint64_t revision = terrain_->revision();
    return std::exchange(seenTerrain_, revision) != revision || otherBands;
}

bool GroundFeed::updateBands(const FeedRequest& request) {
    std::optional<double> altitude;
    if (request.settings.altMode == kRelative)
        altitude = request.data.seaAltitudeFt();
    if (altitude && bandsAtFt_ && std::abs(*altitude - *bandsAtFt_) < kBandStepFt)
        return false;
    return std::exchange(bandsAtFt_, altitude) != altitude;
}

/// Whether all ground of these tiles is known: each is loaded without gaps, or lies at sea.
bool GroundFeed::knowsAll(const std::vector<TileCorner>& corners) const {
    const BaseMapFile& map = picture_->map().file();
    const auto sheet = map.sheetFor(SheetKind::Land, 0);
    MapSea sea(&picture_->map());
    return std::ranges::all_of(corners, [&](TileCorner corner) {
        if (const auto tile = terrain_->tile(corner); tile.state == TerrainStore::State::Loaded)
            return !tile.heights->hasVoids();
        if (!sheet)
            return false;
        const MapSheet& land = map.sheets()[*sheet];
        const int bin = (corner.south + 90) / land.binDegrees * land.columns() +
                        (corner.west + 180) / land.binDegrees;
        // A large lake has no land, too.
        return map.state(land, bin) == BinState::Sea && isSeaWithin(sea, corner);
    });
}

bool GroundFeed::hasNews() const {
    if (!picture_ || !picture_->map().isOpen())
        return false;
    return seenAirspaces_ != airspaceRevision() ||
           (terrain_ != nullptr && picture_->parts().relief &&
            seenTerrain_ != terrain_->revision());
}

void GroundFeed::forget() {
    if (picture_)
        picture_->forget();
}

void GroundFeed::addTo(MapContent& content) const {
    if (!picture_ || !picture_->map().isOpen())
        return;
    content.ground = picture_.get();
    content.terrainNote = note_;
}

}  // namespace korvel
