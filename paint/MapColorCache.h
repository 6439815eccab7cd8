#pragma once

// The colours of the scheme by number instead of by name, for painters.

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "paint/Canvas.h"
#include "paint/Color.h"

namespace korvel {

class ColorScheme;

/// The colours of every scheme, in the order of kColorKeys.
enum class ColorKey : std::uint8_t {
    HsiAirplane,
    HsiBearing,
    HsiLine,
    HsiNeedle,
    HsiNumeral,
    HsiTrack,
    MapBackground,
    MapGrid,
    MapFlightPlan,
    MapFlightPlanActive,
    MapTrack,
    MapAirport,
    MapVor,
    MapFix,
    MapNdb,
    MapNavaid,
    MapNavaidSelected,
    MapInfoBackground,
    MapInfoText,
    MapRunway,
    MapRunwayHeading,
    MapObstacleDanger,
    MapObstacleCaution,
    MapClassB,
    MapClassC,
    MapClassD,
    MapClassX,
    MapSua,
    NavText,
    NavBorder,
    NavBackground,
    NavHeader,
    NavHeaderBackground,
    GeoLand,
    GeoLandMax,
    GeoWater,
    GeoRoad,
    GeoRailroad,
    GeoPopulated,
    GeoPoliticalBoundary,
    GeoLabel,
    GeoDanger,
    GeoWarning,
};

inline constexpr std::size_t kColorKeyCount = 43;

/// The key's text in scheme files, "hsi.airplane" for HsiAirplane.
std::string_view colorKeyText(ColorKey key);

/// The map painter's copy of the scheme, so that a frame looks no key up. Refresh it after each
/// ColorScheme::Reload() and before the next paint.
class MapColorCache {
 public:
    explicit MapColorCache(const ColorScheme& scheme) { refresh(scheme); }

    void refresh(const ColorScheme& scheme);

    ColorValue operator[](ColorKey key) const { return colors_[static_cast<std::size_t>(key)]; }

    /// Nothing bright is to be seen: the scheme is one for the night.
    bool isDark() const { return lightOf((*this)[ColorKey::MapBackground]) < kDarkLight; }

    /// What lies under a chosen row and a button that is to be pressed first: the fields' ground,
    /// or that of the map's information in schemes whose fields are as dark as the page.
    ColorValue chosenGround() const { return (*this)[chosen_]; }
    ColorValue chosenInk() const {
        return (
            *this)[chosen_ == ColorKey::NavBackground ? ColorKey::NavText : ColorKey::MapInfoText];
    }

    // Solid and one pixel wide.
    const Pen& airportPen() const { return airportPen_; }
    const Pen& fixPen() const { return fixPen_; }
    const Pen& vorPen() const { return vorPen_; }
    const Pen& ndbPen() const { return ndbPen_; }

    /// What symbols are drawn on: the plain map, or terrain.
    ColorValue plainSymbolBackground() const { return (*this)[ColorKey::MapBackground]; }
    ColorValue terrainSymbolBackground() const { return (*this)[ColorKey::GeoLand]; }

 private:
    static constexpr double kDarkLight = 80;  ///< of 255, of the map's background

    std::array<ColorValue, kColorKeyCount> colors_{};
    ColorKey chosen_ = ColorKey::NavBackground;
    Pen airportPen_;
    Pen fixPen_;
    Pen vorPen_;
    Pen ndbPen_;
};

}  // namespace korvel
