#include "cockpit/PlaceClass.h"

#include <algorithm>

#include "config/Settings.h"
#include "navdb/file/DatabaseTables.h"
#include "navdb/records/DatabaseRecord.h"

namespace korvel {
namespace {

// Ranks are in feet of runway: a tower is worth a longer runway, and a navaid for long distances
// stands between the large airports and the small ones.
constexpr std::array<PlaceRule, kPlaceClassCount> kRules{{
    {PlaceClass::TowerAirport, 1000, 1000, 9000},
    {PlaceClass::HardAirport, 500, 500, 2500},
    {PlaceClass::SoftAirport, 65, 40, 0},
    {PlaceClass::Strip, 15, 8, -1500},
    {PlaceClass::SeaplaneBase, 40, 25, -1000},
    {PlaceClass::Heliport, 15, 8, -5000},
    {PlaceClass::HighVor, 250, 250, 9000},
    {PlaceClass::BothVor, 250, 250, 10000},
    {PlaceClass::LowVor, 250, 250, 8500},
    {PlaceClass::TerminalVor, 65, 40, 5000},
    {PlaceClass::Ndb, 65, 40, 4000},
    {PlaceClass::RouteFix, 25, 25, -2000},
    {PlaceClass::TerminalFix, 4, 4, -6000},
    {PlaceClass::VisualPoint, 25, 25, 3000},
    {PlaceClass::UserFix, 250, 250, 20000},
}};

constexpr bool rulesAreInOrder() {
    for (std::size_t i = 0; i < kRules.size(); ++i)
        if (static_cast<std::size_t>(kRules.at(i).placeClass) != i)
            return false;
    return true;
}
static_assert(rulesAreInOrder());

constexpr unsigned kAirportsClass = 1U << 0U;
constexpr unsigned kNavaidsClass = 1U << 1U;
constexpr unsigned kFixesClass = 1U << 3U;

PlaceClass classOfAirport(const Place& place) {
    const std::uint32_t flags = place.flags;
    if ((flags & kAirportHeliport) != 0)
        return PlaceClass::Heliport;
    if ((flags & kAirportSeaplaneBase) != 0)
        return PlaceClass::SeaplaneBase;
    // No authority gives identifiers with a dash.
    if ((flags & kAirportTower) == 0 && place.ident.view().find('-') != std::string_view::npos)
        return PlaceClass::Strip;
    if ((flags & kAirportHardSurface) == 0)
        return PlaceClass::SoftAirport;
    return (flags & kAirportTower) != 0 ? PlaceClass::TowerAirport : PlaceClass::HardAirport;
}

PlaceClass classOfVor(std::uint32_t usage) {
    switch (usage) {
        case kUsageHigh:
            return PlaceClass::HighVor;
        case kUsageBoth:
            return PlaceClass::BothVor;
        case kUsageTerminal:
            return PlaceClass::TerminalVor;
        default:
            return PlaceClass::LowVor;
    }
}

unsigned classBitOf(PlaceClass placeClass) {
    if (isAirport(placeClass))
        return kAirportsClass;
    return isVor(placeClass) || placeClass == PlaceClass::Ndb ? kNavaidsClass : kFixesClass;
}

PlaceLayerBit layerOf(PlaceClass placeClass) {
    if (isAirport(placeClass))
        return PlaceLayerBit::Airports;
    if (isVor(placeClass))
        return PlaceLayerBit::Vors;
    if (placeClass == PlaceClass::Ndb)
        return PlaceLayerBit::Ndbs;
    return placeClass == PlaceClass::VisualPoint ? PlaceLayerBit::VisualPoints
                                                 : PlaceLayerBit::Fixes;
}

bool holds(NavaidSet set, const Place& navaid) {
    switch (set) {
        case NavaidSet::Low:
            return true;
        case NavaidSet::High:
            return (navaid.flags & kUsageHigh) != 0;
        case NavaidSet::Term:
            return (navaid.flags & kUsageTerminal) != 0;
        case NavaidSet::Vrp:
            return (navaid.flags & kUsageVisual) != 0;
        default:
            return false;
    }
}

}  // namespace

PlaceClass classOf(const Place& place) {
    if (place.kind == kAirportKind)
        return classOfAirport(place);
    if (place.kind == kFixKind && place.flags == kUsageMarked)
        return PlaceClass::UserFix;
    if (place.flags == kUsageVisual)
        return PlaceClass::VisualPoint;
    if (place.kind == kVorKind)
        return classOfVor(place.flags);
    if (place.kind == kNdbKind)
        return PlaceClass::Ndb;
    const bool onRoutes = (place.flags & kUsageBoth) != 0;
    return onRoutes ? PlaceClass::RouteFix : PlaceClass::TerminalFix;
}

const PlaceRule& ruleOf(PlaceClass placeClass) {
    return kRules.at(static_cast<std::size_t>(placeClass));
}

MapPlaceOptions MapPlaceOptions::from(const Settings& settings) {
    MapPlaceOptions options;
    options.icons = settings.icons;
    options.highNavaids = settings.highNavaids;
    options.visualPoints = settings.vrpNavaids;
    options.privateAirports = settings.displayPrivateAirports != 0;
    options.classMask = static_cast<unsigned>(settings.viewMask);
    options.layerMask = static_cast<unsigned>(settings.mapMask);
    if (settings.rotateNavaids)
        std::ranges::transform(settings.rotateModes, options.navaidSets.begin(),
                               [](int mode) { return static_cast<NavaidSet>(mode); });
    return options;
}

NavaidSet nextNavaidSet(NavaidSet set, const Settings& settings) {
    switch (set) {
        case NavaidSet::Low:
            return settings.highNavaids ? NavaidSet::High : NavaidSet::Term;
        case NavaidSet::High:
            return NavaidSet::Term;
        case NavaidSet::Term:
            return settings.vrpNavaids ? NavaidSet::Vrp : NavaidSet::Off;
        case NavaidSet::Vrp:
            return NavaidSet::Off;
        default:
            return NavaidSet::Low;
    }
}

bool isShown(const Place& place, PlaceClass placeClass, int rangeNm,
             const MapPlaceOptions& options) {
    // What the pilot has marked himself no mask hides.
    if (placeClass == PlaceClass::UserFix)
        return rangeNm <= ruleOf(placeClass).symbolToNm;
    if (rangeNm > ruleOf(placeClass).symbolToNm ||
        (options.classMask & classBitOf(placeClass)) == 0 || !options.shows(layerOf(placeClass)))
        return false;
    if (isAirport(placeClass))
        return options.privateAirports || (place.flags & kAirportPrivate) == 0;
    const auto isIn = [&](NavaidSet set) { return holds(set, place); };
    if (std::ranges::none_of(options.navaidSets, isIn))
        return false;
    if (placeClass == PlaceClass::VisualPoint)
        return options.visualPoints;
    // Fixes and NDBs of high altitude alone go with the VORs.
    return options.highNavaids || place.flags != kUsageHigh;
}

bool isLabelled(PlaceClass placeClass, int rangeNm, const MapPlaceOptions& options) {
    if (placeClass == PlaceClass::UserFix)
        return rangeNm <= ruleOf(placeClass).labelToNm;
    return rangeNm <= ruleOf(placeClass).labelToNm && options.labels(layerOf(placeClass));
}

}  // namespace korvel
