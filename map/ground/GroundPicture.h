#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <utility>
#include <vector>

#include "ground/airspace/AirspaceSet.h"
#include "ground/basemap/BaseMap.h"
#include "map/MapView.h"
#include "map/ground/GroundParts.h"
#include "map/ground/GroundRaster.h"
#include "paint/Canvas.h"
#include "paint/MapColorCache.h"

namespace korvel {

class TerrainStore;

/// The ground as one picture, a bit larger than the view and at the angle that the map had when it
/// was made: while the aircraft flies and turns it is shifted and turned under everything else, and
/// drawn anew when the view leaves it. All of that is exact, since the projection is affine, as
/// long as range and the whole degree of the centre's latitude stay.
class GroundPicture {
 public:
    /// The map must outlive the picture.
    explicit GroundPicture(BaseMap& map) : map_(map), raster_(map) {}

    /// The picture of this view; `pixelRatio` is that of the canvas. Draws it anew if needed.
    void prepare(const MapView& view, const MapColorCache& colors, double pixelRatio);
    /// What prepare() has made ready, and how it lies on the canvas.
    [[nodiscard]] Bitmap bitmap() const { return raster_.bitmap(); }
    [[nodiscard]] BitmapPlace place(const MapView& view) const;

    /// Draws their outlines from now on; null for none. They must outlive the picture.
    void showAirspaces(const AirspaceSet* airspaces) { airspaces_ = airspaces; }
    const AirspaceSet* airspaces() const { return airspaces_; }

    /// Those alone that reach between these altitudes, from now on; nothing for all.
    void showAltitudes(const std::optional<AltitudeWindow>& altitudes) { altitudes_ = altitudes; }
    [[nodiscard]] const std::optional<AltitudeWindow>& altitudes() const { return altitudes_; }

    /// Draws these parts alone from now on.
    void showParts(const GroundParts& parts) { parts_ = parts; }
    [[nodiscard]] const GroundParts& parts() const { return parts_; }

    /// Takes heights from these tiles, null for the base map's coarse ones; with an altitude in
    /// feet ground is coloured by how near it comes to that. They must outlive the picture.
    void showTerrain(const TerrainStore* terrain, std::optional<double> bandsAtFt) {
        terrain_ = terrain;
        bandsAtFt_ = bandsAtFt;
    }
    /// What a picture of this view is drawn for: the view with some room around it.
    [[nodiscard]] static Rect areaFor(const MapView& view);

    /// Drops the picture.
    void forget() { key_.reset(); }
    BaseMap& map() const { return map_; }
    /// How often it was drawn.
    [[nodiscard]] int drawn() const { return drawn_; }

 private:
    /// What a picture is good for.
    struct Key {
        double pixelsPerNm = 0;
        int wholeLatDeg = 0;
        double pixelRatio = 1;
        GroundParts parts;
        std::uint64_t airspaces = 0;  ///< their revision
        std::optional<AltitudeWindow> altitudes{};
        std::optional<std::uint64_t> terrain{};
        std::optional<double> bandsAtFt{};
        std::vector<ColorValue> colors;

        friend bool operator==(const Key&, const Key&) = default;
    };

    [[nodiscard]] bool covers(const MapView& view) const;
    void draw(const MapView& view, const MapColorCache& colors);

    BaseMap& map_;
    const AirspaceSet* airspaces_ = nullptr;
    const TerrainStore* terrain_ = nullptr;
    std::optional<double> bandsAtFt_;
    std::optional<AltitudeWindow> altitudes_;
    GroundParts parts_;
    std::optional<Key> key_;
    GeoPoint center_;   ///< the ground under pivot_
    Point pivot_;       ///< pixels of the picture
    int angleDeg_ = 0;  ///< of the map when it was drawn
    GroundRaster raster_;
    int drawn_ = 0;
};

}  // namespace korvel
