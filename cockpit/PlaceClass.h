#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "navdb/search/Place.h"

namespace korvel {

struct Settings;

/// What a place is to the map: the classes differ in how far out they show and how they look.
enum class PlaceClass : std::uint8_t {
    TowerAirport,  ///< hard surface and a tower
    HardAirport,   ///< hard surface
    SoftAirport,
    Strip,  ///< whose identifier is a number that its source has made up, such as GB-0123
    SeaplaneBase,
    Heliport,
    HighVor,  ///< high altitude alone
    BothVor,  ///< low and high altitude
    LowVor,
    TerminalVor,
    Ndb,
    RouteFix,  ///< low, high or both
    TerminalFix,
    VisualPoint,
    UserFix,  ///< marked by the pilot
};
inline constexpr std::size_t kPlaceClassCount = 15;

/// Of a place whose identifier is not read yet a strip counts as what its surface makes of it.
PlaceClass classOf(const Place& place);

constexpr bool isAirport(PlaceClass placeClass) { return placeClass <= PlaceClass::Heliport; }
constexpr bool isVor(PlaceClass placeClass) {
    return placeClass >= PlaceClass::HighVor && placeClass <= PlaceClass::TerminalVor;
}

/// What shows at which display range, a row for each class.
struct PlaceRule {
    PlaceClass placeClass;
    int symbolToNm;  ///< largest range at which the place shows
    int labelToNm;   ///< largest range at which it is named
    double rank;     ///< importance; an airport's longest runway in feet comes on top
};

const PlaceRule& ruleOf(PlaceClass placeClass);

inline constexpr int kRunwaysToNm = 15;  ///< runways to scale
inline constexpr int kRosesToNm = 25;    ///< compass roses of VORs
/// From here on what would stand on something more important is left out, the symbol as well.
inline constexpr int kSparseFromNm = 40;
/// From here on a place that cannot be named is left out, too, and the lesser ones show only where
/// there is nothing else around: a strip on an island.
inline constexpr int kNamedOnlyFromNm = 250;

/// The map's layers by their bits in the setting "MapMask2"; a layer's labels have their bit
/// sixteen places higher.
enum class PlaceLayerBit : unsigned {
    Airports = 1,
    Runways = 2,
    Vors = 3,
    CompassRoses = 4,
    Ndbs = 5,
    Fixes = 6,
    VisualPoints = 7,
    Airspaces = 8,
    BaseMap = 9,  ///< land, water and lines; its labels are the towns
    Terrain = 10,
    // Off by default, so that they hide when they are set.
    HideRivers = 11,
    HideBorders = 12,
    HideTowns = 13,
    HideRelief = 14,
    HideObstacles = 15,
    Profile = 27,        ///< the strip under the map; off by default, and without labels
    EnduranceRing = 28,  ///< likewise
};

/// How much higher the bit of a layer's labels is.
inline constexpr unsigned kLayerLabelsAbove = 16;

/// What of the navaids and fixes the map shows, as the setting "RotateMask" counts it.
enum class NavaidSet : std::uint8_t {
    Low,   ///< all that are enabled, as a low flight wants them
    High,  ///< only those of high altitude
    Term,  ///< only terminal ones
    Vrp,   ///< only visual reporting points
    Off,
};

/// The set behind this one; those that the settings do not enable are left out.
NavaidSet nextNavaidSet(NavaidSet set, const Settings& settings);

/// What the pilot's settings say about places.
struct MapPlaceOptions {
    bool icons = false;        ///< filled symbols instead of outlines
    bool highNavaids = false;  ///< also those of high altitude alone
    bool visualPoints = false;
    bool privateAirports = false;
    unsigned classMask = 11;         ///< "ViewMask": bit 0 airports, bit 1 navaids, bit 3 fixes
    unsigned layerMask = 0x7FE07FE;  ///< "MapMask2"
    /// The sets of navaids and fixes of which a place must be in one; see NavaidSet.
    std::array<NavaidSet, 3> navaidSets{NavaidSet::Low, NavaidSet::Off, NavaidSet::Off};

    static MapPlaceOptions from(const Settings& settings);

    bool shows(PlaceLayerBit layer) const { return has(static_cast<unsigned>(layer)); }
    bool labels(PlaceLayerBit layer) const {
        return has(static_cast<unsigned>(layer) + kLayerLabelsAbove);
    }

    friend bool operator==(const MapPlaceOptions&, const MapPlaceOptions&) = default;

 private:
    bool has(unsigned bit) const { return (layerMask >> bit & 1U) != 0; }
};

/// Whether places like this one show at this range.
bool isShown(const Place& place, PlaceClass placeClass, int rangeNm,
             const MapPlaceOptions& options);
bool isLabelled(PlaceClass placeClass, int rangeNm, const MapPlaceOptions& options);

}  // namespace korvel
