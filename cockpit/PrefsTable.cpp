#include "cockpit/PrefsTable.h"

#include <algorithm>
#include <array>

#include "base/TextNumbers.h"
#include "cockpit/PageId.h"
#include "cockpit/PlaceClass.h"

namespace korvel {
namespace {

using enum PrefsPage;

constexpr std::array kAltitudeUnits = {TextId::UnitFeet, TextId::UnitMetres};
constexpr std::array kSpeedUnits = {TextId::UnitKnots, TextId::UnitMph, TextId::UnitKmh};
constexpr std::array kTerrainModes = {TextId::TerrainAbsolute, TextId::TerrainRelative};
constexpr unsigned kLabelsAbove = 16;  // where a layer's labels have their bit
constexpr int kHighestAltitude = 60000;
constexpr int kFastestKt = 500;

constexpr PrefRow flag(PrefsPage page, std::string_view key, TextId label) {
    return {.page = page, .key = key, .label = label, .kind = PrefKind::Flag};
}
constexpr PrefRow choice(PrefsPage page, std::string_view key, TextId label,
                         std::span<const TextId> choices) {
    return {.page = page, .key = key, .label = label, .kind = PrefKind::Choice, .choices = choices};
}
constexpr PrefRow number(PrefsPage page, std::string_view key, TextId label, int lowest,
                         int highest) {
    return {.page = page,
            .key = key,
            .label = label,
            .kind = PrefKind::Number,
            .lowest = lowest,
            .highest = highest};
}
/// `highest` is the number of characters.
constexpr PrefRow words(PrefsPage page, std::string_view key, TextId label, int highest) {
    return {.page = page, .key = key, .label = label, .kind = PrefKind::Text, .highest = highest};
}
constexpr PrefRow mode(TextId label, unsigned number) {
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
constexpr PrefRow symbols(TextId label, PlaceLayerBit layer) {
    return bit(flag(MapLayers, "MapMask2", label), static_cast<unsigned>(layer));
}
constexpr PrefRow labels(TextId label, PlaceLayerBit layer) {
    return bit(flag(MapLayers, "MapMask2", label), static_cast<unsigned>(layer) + kLabelsAbove);
}
constexpr PrefRow shown(TextId label, PageId page) {
    return bit(flag(Pages, "DisplayPages", label), static_cast<unsigned>(page));
}

constexpr std::array kRows = {
    flag(General, "ShowHints2", TextId::PrefHints),
    choice(General, "AltUnit", TextId::PrefAltUnit, kAltitudeUnits),
    choice(General, "GsUnit", TextId::PrefGsUnit, kSpeedUnits),
    flag(General, "Autozoom", TextId::PrefAutozoom),
    flag(General, "Autoview", TextId::PrefAutoview),

    flag(Map, "Icon", TextId::PrefIcons),
    flag(Map, "HighNavaids", TextId::PrefHighNavaids),
    flag(Map, "VRPNavaids", TextId::PrefVrpNavaids),
    flag(Map, "DisplayPrivAirports", TextId::PrefPrivateAirports),
    flag(Map, "RotateNavaids", TextId::PrefRotateNavaids),
    mode(TextId::PrefRotateMode1, 0),
    mode(TextId::PrefRotateMode2, 1),
    mode(TextId::PrefRotateMode3, 2),
    choice(Map, "AltMode", TextId::PrefAltMode, kTerrainModes),
    number(Map, "MinObsHt", TextId::PrefMinObstacle, 0, 9999),
    number(Map, "IntelliBdryAlt", TextId::PrefBoundaryAltitude, 0, kHighestAltitude),
    number(Map, "MapPref", TextId::PrefMapPreference, 0, 9999),

    bit(flag(MapLayers, "ViewMask", TextId::ClassAirports), 0),
    bit(flag(MapLayers, "ViewMask", TextId::ClassNavaids), 1),
    bit(flag(MapLayers, "ViewMask", TextId::ClassFixes), 3),
    symbols(TextId::LayerAirports, PlaceLayerBit::Airports),
    labels(TextId::LabelsAirports, PlaceLayerBit::Airports),
    symbols(TextId::LayerRunways, PlaceLayerBit::Runways),
    labels(TextId::LabelsRunways, PlaceLayerBit::Runways),
    symbols(TextId::LayerVors, PlaceLayerBit::Vors),
    labels(TextId::LabelsVors, PlaceLayerBit::Vors),
    symbols(TextId::LayerRoses, PlaceLayerBit::CompassRoses),
    symbols(TextId::LayerNdbs, PlaceLayerBit::Ndbs),
    labels(TextId::LabelsNdbs, PlaceLayerBit::Ndbs),
    symbols(TextId::LayerFixes, PlaceLayerBit::Fixes),
    labels(TextId::LabelsFixes, PlaceLayerBit::Fixes),
    symbols(TextId::LayerVrps, PlaceLayerBit::VisualPoints),
    labels(TextId::LabelsVrps, PlaceLayerBit::VisualPoints),

    flag(Approach, "ApprMode", TextId::PrefApproach),
    flag(Approach, "AutoApprMode", TextId::PrefAutoApproach),
    number(Approach, "Approach", TextId::PrefApproachSpeed, 1, kFastestKt),
    flag(Approach, "GearWarning", TextId::PrefGearWarning),
    flag(Approach, "AutoSequence", TextId::PrefAutoSequence),

    words(Identifiers, "IcaoPrefix", TextId::PrefIcaoPrefix, 2),

    flag(Gps, "IgnoreMagVar", TextId::PrefIgnoreMagVar),
    flag(Gps, "GyroConn", TextId::PrefGyroConnected),
    flag(Gps, "ViaGyro", TextId::PrefViaGyro),
    words(Gps, "PortGyro", TextId::PrefPortGyro, 16),
    words(Gps, "BaudGyro", TextId::PrefBaudGyro, 6),

    flag(Log, "Tracking", TextId::PrefTracking),
    flag(Log, "LogEnable", TextId::PrefLogEnable),
    number(Log, "LogStartVal", TextId::PrefLogStart, -1, kFastestKt),
    number(Log, "LogEndVal", TextId::PrefLogEnd, -1, kFastestKt),

    shown(TextId::PageMap, PageId::Map),
    shown(TextId::PageMapHsi, PageId::MapHsi),
    shown(TextId::PageHsi, PageId::Hsi),
    shown(TextId::PageEfis, PageId::Efis),
    shown(TextId::PageNorthUp, PageId::NorthUp),
    shown(TextId::PageFlightPlan, PageId::FlightPlan),
    shown(TextId::PageNearest, PageId::NearestAirport),
    shown(TextId::PageSatellite, PageId::Satellite),
    shown(TextId::PageAttitude, PageId::Attitude),
};
static_assert(std::ranges::is_sorted(kRows, {}, &PrefRow::page));

const SettingInfo& infoOf(std::string_view key) {
    return *std::ranges::find(settingsTable(), key, &SettingInfo::key);
}

}  // namespace

TextId prefsPageName(PrefsPage page) {
    constexpr std::array<TextId, kPrefsPageCount> kNames = {
        TextId::PrefsGeneral,     TextId::PrefsMap, TextId::PrefsLayers, TextId::PrefsApproach,
        TextId::PrefsIdentifiers, TextId::PrefsGps, TextId::PrefsLog,    TextId::PrefsPages};
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
        return formatText(TextId::NumberOutOfRange, {text(label), lowest, highest});
    value = *number;
    return {};
}

std::span<const PrefRow> prefRows() { return kRows; }

}  // namespace korvel
