#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <vector>

#include "ground/airspace/AirspaceSet.h"
#include "ground/basemap/BaseMap.h"
#include "map/ground/AirspaceLines.h"
#include "map/ground/GroundGrid.h"
#include "map/ground/GroundParts.h"
#include "paint/Canvas.h"
#include "paint/MapColorCache.h"
#include "paint/ground/Coverage.h"
#include "paint/ground/HeightShading.h"

namespace korvel {

class TerrainStore;
struct TerrainField;

// Ground that comes nearer to the aircraft's altitude, or above it, is coloured.
inline constexpr double kDangerBelowFt = 100;
inline constexpr double kWarningBelowFt = 1000;

/// What a picture of the ground shows besides the map itself.
struct GroundScene {
    GroundParts parts;
    const AirspaceSet* airspaces = nullptr;  ///< null for none
    /// Those that reach between these altitudes alone; nothing for all.
    std::optional<AltitudeWindow> altitudes{};
    const TerrainStore* terrain = nullptr;  ///< null where the base map's heights will do
    /// The altitude above sea in feet by which ground is coloured; nothing for its own heights'
    /// colours.
    std::optional<double> bandsAtFt{};
    int rangeNm = 0;
    double pixelRatio = 1;  ///< pixels of the raster in one of the canvas
};

/// Composes land and water, heights, lines and outlines in memory, without any toolkit.
class GroundRaster {
 public:
    /// The map must outlive it.
    explicit GroundRaster(BaseMap& map) : map_(map) {}

    /// Draws all of it anew.
    void draw(int width, int height, const GroundGrid& grid, const GroundScene& scene,
              const MapColorCache& colors);
    /// What was drawn last.
    [[nodiscard]] Bitmap bitmap() const { return {width_, height_, pixels_, true}; }

 private:
    void drawLand(const GroundGrid& grid, const GroundScene& scene, const MapColorCache& colors);
    void shadeLand(const GroundGrid& grid, const GroundScene& scene, const MapColorCache& colors);
    void drawLines(const GroundGrid& grid, const GroundScene& scene, const MapColorCache& colors);
    void drawAirspaces(const GroundGrid& grid, const GroundScene& scene,
                       const MapColorCache& colors);
    void hideBeyondTheWorld(const GroundGrid& grid, ColorValue background);
    void paintBands(std::span<const Segment> lines, double width, ColorValue color, double opacity);
    void colorLand(const GroundGrid& grid, const GroundScene& scene, const MapColorCache& colors,
                   const HeightGrid& heights, const TerrainField* terrain);
    void hatchUnknown(const HeightGrid& heights, const TerrainField& terrain, double pixelRatio,
                      ColorValue ink);
    const LandTint& tint(const MapColorCache& colors);

    /// A table that takes a millisecond to make.
    struct Tint {
        ColorValue land;
        ColorValue highest;
        LandTint tint;
    };

    BaseMap& map_;
    int width_ = 0;  ///< pixels
    int height_ = 0;
    std::vector<std::uint32_t> pixels_;
    std::unique_ptr<Coverage> coverage_;  ///< kept for its memory
    std::optional<Tint> tint_;
    std::vector<float> slopes_;  ///< these two as well
    std::vector<std::uint32_t> land_;
};

}  // namespace korvel
