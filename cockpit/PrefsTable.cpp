#include "cockpit/PrefsTable.h"

#include <algorithm>
#include <array>

#include "base/TextNumbers.h"
#include "cockpit/PageId.h"
#include "cockpit/PlaceClass.h"
#include "config/texts/AircraftTexts.h"
#include "config/texts/FlightTexts.h"
#include "config/texts/PreferenceTexts.h"

namespace korvel {
namespace {

using enum PrefsPage;

constexpr std::array kAltitudeUnits = {kPreferenceTexts.unitFeet, kPreferenceTexts.unitMetres};
constexpr std::array kSpeedUnits = {kPreferenceTexts.unitKnots, kPreferenceTexts.unitMph,
                                    kPreferenceTexts.unitKmh};
constexpr std::array kTerrainModes = {kPreferenceTexts.terrainAbsolute,
                                      kPreferenceTexts.terrainRelative};
constexpr int kHighestAltitude = 60000;
constexpr int kFastestKt = 500;

constexpr PrefRow flag(PrefsPage page, std::string_view key, Text label) {
    return {.page = page, .key = key, .label = label, .kind = PrefKind::Flag};
}
constexpr PrefRow choice(PrefsPage page, std::string_view key, Text label,
                         std::span<const Text> choices) {
    return {.page = page, .key = key, .label = label, .kind = PrefKind::Choice, .choices = choices};
}
constexpr PrefRow number(PrefsPage page, std::string_view key, Text label, int lowest,
                         int highest) {
    return {.page = page,
            .key = key,
            .label = label,
            .kind = PrefKind::Number,
            .lowest = lowest,
            .highest = highest};
}
/// `highest` is the number of characters.
constexpr PrefRow words(PrefsPage page, std::string_view key, Text label, int highest) {
    return {.page = page, .key = key, .label = label, .kind = PrefKind::Text, .highest = highest};
}
constexpr PrefRow mode(Text label, unsigned number) {
    constexpr unsigned kBits = 8;
    PrefRow row = choice(Map, "RotateMask", label, kNavaidSetNames);
    row.shift = kBits * number;
    row.bits = kBits;
    return row;
}
constexpr PrefRow bit(PrefRow row, unsigned number) {
    row.shift = number;
    row.bits = 1;
    return row;
}
constexpr PrefRow symbols(Text label, PlaceLayerBit layer) {
    return bit(flag(MapLayers, "MapMask2", label), static_cast<unsigned>(layer));
}
constexpr PrefRow labels(Text label, PlaceLayerBit layer) {
    return bit(flag(MapLayers, "MapMask2", label),
               static_cast<unsigned>(layer) + kLayerLabelsAbove);
}
constexpr PrefRow shown(PageId page) {
    return bit(flag(Pages, "DisplayPages", pageText(page)), static_cast<unsigned>(page));
}

constexpr std::array kRows = {
    flag(General, "ShowHints2", kPreferenceTexts.prefHints),
    choice(General, "AltUnit", kPreferenceTexts.prefAltUnit, kAltitudeUnits),
    choice(General, "GsUnit", kPreferenceTexts.prefGsUnit, kSpeedUnits),
    flag(General, "Autozoom", kPreferenceTexts.prefAutozoom),
    flag(General, "Autoview", kPreferenceTexts.prefAutoview),

    flag(Map, "Icon", kPreferenceTexts.prefIcons),
    flag(Map, "HighNavaids", kPreferenceTexts.prefHighNavaids),
    flag(Map, "VRPNavaids", kPreferenceTexts.prefVrpNavaids),
    flag(Map, "DisplayPrivAirports", kPreferenceTexts.prefPrivateAirports),
    flag(Map, "RotateNavaids", kPreferenceTexts.prefRotateNavaids),
    mode(kPreferenceTexts.prefRotateMode1, 0),
    mode(kPreferenceTexts.prefRotateMode2, 1),
    mode(kPreferenceTexts.prefRotateMode3, 2),
    choice(Map, "AltMode", kPreferenceTexts.prefAltMode, kTerrainModes),
    number(Map, "MinObsHt", kPreferenceTexts.prefMinObstacle, 0, 9999),
    number(Map, "IntelliBdryAlt", kPreferenceTexts.prefBoundaryAltitude, 0, kHighestAltitude),
    number(Map, "MapPref", kPreferenceTexts.prefMapPreference, 0, 9999),

    bit(flag(MapLayers, "ViewMask", kPreferenceTexts.classAirports), 0),
    bit(flag(MapLayers, "ViewMask", kPreferenceTexts.classNavaids), 1),
    bit(flag(MapLayers, "ViewMask", kPreferenceTexts.classFixes), 3),
    symbols(kPreferenceTexts.layerAirports, PlaceLayerBit::Airports),
    labels(kPreferenceTexts.labelsAirports, PlaceLayerBit::Airports),
    symbols(kPreferenceTexts.layerRunways, PlaceLayerBit::Runways),
    labels(kPreferenceTexts.labelsRunways, PlaceLayerBit::Runways),
    symbols(kPreferenceTexts.layerVors, PlaceLayerBit::Vors),
    labels(kPreferenceTexts.labelsVors, PlaceLayerBit::Vors),
    symbols(kPreferenceTexts.layerRoses, PlaceLayerBit::CompassRoses),
    symbols(kPreferenceTexts.layerNdbs, PlaceLayerBit::Ndbs),
    labels(kPreferenceTexts.labelsNdbs, PlaceLayerBit::Ndbs),
    symbols(kPreferenceTexts.layerFixes, PlaceLayerBit::Fixes),
    labels(kPreferenceTexts.labelsFixes, PlaceLayerBit::Fixes),
    symbols(kPreferenceTexts.layerVrps, PlaceLayerBit::VisualPoints),
    labels(kPreferenceTexts.labelsVrps, PlaceLayerBit::VisualPoints),
    symbols(kPreferenceTexts.layerAirspaces, PlaceLayerBit::Airspaces),
    labels(kPreferenceTexts.labelsAirspaces, PlaceLayerBit::Airspaces),
    symbols(kPreferenceTexts.layerBaseMap, PlaceLayerBit::BaseMap),
    labels(kPreferenceTexts.labelsTowns, PlaceLayerBit::BaseMap),
    symbols(kPreferenceTexts.layerTerrain, PlaceLayerBit::Terrain),
    labels(kPreferenceTexts.labelsObstacles, PlaceLayerBit::Terrain),
    symbols(kPreferenceTexts.hideRivers, PlaceLayerBit::HideRivers),
    symbols(kPreferenceTexts.hideBorders, PlaceLayerBit::HideBorders),
    symbols(kPreferenceTexts.hideTowns, PlaceLayerBit::HideTowns),
    symbols(kPreferenceTexts.hideRelief, PlaceLayerBit::HideRelief),
    symbols(kPreferenceTexts.hideObstacles, PlaceLayerBit::HideObstacles),
    symbols(kPreferenceTexts.layerProfile, PlaceLayerBit::Profile),
    symbols(kAircraftTexts.layerEndurance, PlaceLayerBit::EnduranceRing),

    flag(Approach, "ApprMode", kPreferenceTexts.prefApproach),
    flag(Approach, "AutoApprMode", kPreferenceTexts.prefAutoApproach),
    number(Approach, "Approach", kPreferenceTexts.prefApproachSpeed, 1, kFastestKt),
    flag(Approach, "GearWarning", kPreferenceTexts.prefGearWarning),
    flag(Approach, "AutoSequence", kPreferenceTexts.prefAutoSequence),

    words(Identifiers, "IcaoPrefix", kPreferenceTexts.prefIcaoPrefix, 2),

    flag(Gps, "IgnoreMagVar", kPreferenceTexts.prefIgnoreMagVar),
    flag(Gps, "GyroConn", kPreferenceTexts.prefGyroConnected),
    flag(Gps, "ViaGyro", kPreferenceTexts.prefViaGyro),
    words(Gps, "PortGyro", kPreferenceTexts.prefPortGyro, 16),
    words(Gps, "BaudGyro", kPreferenceTexts.prefBaudGyro, 6),

    flag(Log, "Tracking", kPreferenceTexts.prefTracking),
    flag(Log, "LogEnable", kPreferenceTexts.prefLogEnable),
    number(Log, "LogStartVal", kPreferenceTexts.prefLogStart, -1, kFastestKt),
    number(Log, "LogEndVal", kPreferenceTexts.prefLogEnd, -1, kFastestKt),

    shown(PageId::Map),
    shown(PageId::MapHsi),
    shown(PageId::Hsi),
    shown(PageId::Efis),
    shown(PageId::NorthUp),
    shown(PageId::FlightPlan),
    shown(PageId::NearestAirport),
    shown(PageId::Satellite),
    shown(PageId::Attitude),
    shown(PageId::Airspace),
    shown(PageId::Profile),
};
static_assert(std::ranges::is_sorted(kRows, {}, &PrefRow::page));

const SettingInfo& infoOf(std::string_view key) {
    return *std::ranges::find(settingsTable(), key, &SettingInfo::key);
}

}  // namespace

Text prefsPageName(PrefsPage page) {
    constexpr std::array<Text, kPrefsPageCount> kNames = {
        kPreferenceTexts.prefsGeneral,     kPreferenceTexts.prefsMap,
        kPreferenceTexts.prefsLayers,      kPreferenceTexts.prefsApproach,
        kPreferenceTexts.prefsIdentifiers, kPreferenceTexts.prefsGps,
        kPreferenceTexts.prefsLog,         kPreferenceTexts.prefsPages};
    return kNames.at(static_cast<std::size_t>(page));
}

SettingValue PrefRow::valueIn(const Settings& settings) const {
    SettingValue stored = infoOf(key).valueIn(settings);
    const int* number = std::get_if<int>(&stored);
    if (number == nullptr || bits == 0)
        return stored;
    return static_cast<int>(static_cast<unsigned>(*number) >> shift & ((1U << bits) - 1));
}

void PrefRow::store(const SettingValue& value, Settings& settings) const {
    const SettingInfo& info = infoOf(key);
    if (bits == 0)
        return info.store(value, settings);
    const auto before = static_cast<unsigned>(std::get<int>(info.valueIn(settings)));
    const unsigned mask = ((1U << bits) - 1) << shift;
    const unsigned own = static_cast<unsigned>(std::get<int>(value)) << shift;
    info.store(static_cast<int>((before & ~mask) | (own & mask)), settings);
}

std::string PrefRow::read(std::string_view typed, SettingValue& value) const {
    if (kind == PrefKind::Text) {
        value = std::string(typed.substr(0, static_cast<std::size_t>(highest)));
        return {};
    }
    const auto number = scanInt(typed);
    const bool isAll = typed.find_first_not_of(' ') == std::string_view::npos;
    if (!number || !isAll || *number < lowest || *number > highest)
        return formatText(kFlightTexts.numberOutOfRange, {text(label), lowest, highest});
    value = *number;
    return {};
}

std::span<const PrefRow> prefRows() { return kRows; }

}  // namespace korvel
