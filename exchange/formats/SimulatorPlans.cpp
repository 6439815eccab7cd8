#include "exchange/formats/SimulatorPlans.h"

#include <array>
#include <map>
#include <string>
#include <string_view>

#include "base/TextNumbers.h"
#include "config/Text.h"
#include "config/texts/ExchangeTexts.h"
#include "geo/Geodesy.h"

namespace korvel {
namespace {

struct TypeName {
    std::string_view name;
    KindMask kind;
};
constexpr std::array kNavmapTypes{TypeName{"AIRPORT", kAirportKind}, TypeName{"VOR", kVorKind},
                                  TypeName{"NDB", kNdbKind}, TypeName{"WAYPOINT", kFixKind}};

GeoPoint orTell(const std::optional<GeoPoint>& position, std::string& error) {
    if (!position)
        error = text(kExchangeTexts.badCoordinate);
    return position.value_or(GeoPoint{});
}

/// An altitude that was planned: 0 stands for none, and an airport's is its elevation.
std::optional<double> plannedFt(std::string_view number, KindMask kind) {
    const auto feet = wholeNumber(number);
    return feet && *feet != 0.0 && kind != kAirportKind ? feet : std::nullopt;
}

ForeignPoint navmapPoint(pugi::xml_node waypoint, std::string& error) {
    const pugi::xml_node at = childNamed(waypoint, "Pos");
    const std::string type = childText(waypoint, "Type");
    ForeignPoint point;
    point.ident = childText(waypoint, "Ident");
    point.name = childText(waypoint, "Name");
    point.kinds = 0;
    for (const TypeName& each : kNavmapTypes)
        if (each.name == type)
            point.kinds = each.kind;
    point.isPublished = point.kinds != 0;
    point.position =
        orTell(pointOf(at.attribute("Lat").as_string(), at.attribute("Lon").as_string()), error);
    point.altitudeFt = plannedFt(at.attribute("Alt").as_string(), point.kinds);
    return point;
}

ForeignPoint flightGearPoint(pugi::xml_node wp, std::string& error) {
    const std::string type = childText(wp, "type");
    ForeignPoint point;
    point.ident = childText(wp, "ident");
    point.kinds = type == "navaid" ? kAllKinds : 0;
    if (type == "runway") {
        point.ident = childText(wp, "icao");
        point.kinds = kAirportKind;
    }
    point.isPublished = point.kinds != 0;
    point.position = orTell(pointOf(childText(wp, "lat"), childText(wp, "lon")), error);
    point.altitudeFt = plannedFt(childText(wp, "altitude-ft"), point.kinds);
    return point;
}

/// "N514807.00 W0000930.00": degrees, minutes and seconds without marks between.
std::optional<double> packedDegrees(std::string_view text, std::string_view letters,
                                    std::size_t digits) {
    if (text.size() < digits + 5 || letters.find(text.front()) == std::string_view::npos)
        return std::nullopt;
    const bool isPositive = text.front() == letters.front();
    const auto degrees = wholeNumber(text.substr(1, digits));
    const auto minutes = wholeNumber(text.substr(1 + digits, 2));
    const auto seconds = wholeNumber(text.substr(3 + digits));
    if (!degrees || !minutes || !seconds || *degrees < 0 || *minutes < 0 || *minutes >= 60 ||
        *seconds < 0 || *seconds > 60)
        return std::nullopt;
    const double value = *degrees + *minutes / 60.0 + *seconds / 3600.0;
    return isPositive ? value : -value;
}

std::optional<GeoPoint> packedPosition(std::string_view text) {
    const std::size_t blank = text.find(' ');
    if (blank == std::string_view::npos)
        return std::nullopt;
    const auto lat = packedDegrees(text.substr(0, blank), "NS", 2);
    const auto lon = packedDegrees(text.substr(blank + 1), "EW", 3);
    if (!lat || !lon || std::abs(*lat) > 90.0 || std::abs(*lon) > 180.0)
        return std::nullopt;
    return GeoPoint{.lat = *lat * kDegToRad, .lon = *lon * kDegToRad};
}

}  // namespace

ForeignPlan readLittleNavmap(const Source& source) {
    ForeignPlan plan;
    const pugi::xml_node flight = childNamed(source.root(), "Flightplan");
    ForeignRoute& route = plan.routes.emplace_back();
    eachChild(childNamed(flight, "Waypoints"), "Waypoint", [&](pugi::xml_node waypoint) {
        route.points.push_back(navmapPoint(waypoint, plan.error));
    });
    return plan;
}

ForeignPlan readFlightGear(const Source& source) {
    ForeignPlan plan;
    ForeignRoute& route = plan.routes.emplace_back();
    eachChild(childNamed(source.root(), "route"), "wp",
              [&](pugi::xml_node wp) { route.points.push_back(flightGearPoint(wp, plan.error)); });
    return plan;
}

ForeignPlan readSkyDemon(const Source& source) {
    std::map<std::string, std::string, std::less<>> names;
    eachChild(childNamed(source.root(), "WaypointNameHints"), "Hint",
              [&names](pugi::xml_node hint) {
                  names[attributeText(hint, "Location")] = attributeText(hint, "Name");
              });
    ForeignPlan plan;
    const pugi::xml_node primary = childNamed(source.root(), "PrimaryRoute");
    ForeignRoute& route = plan.routes.emplace_back();
    const auto add = [&](const std::string& location) {
        ForeignPoint point;
        point.position = orTell(packedPosition(location), plan.error);
        if (const auto name = names.find(location); name != names.end())
            point.name = point.ident = name->second;
        route.points.push_back(std::move(point));
    };
    if (!primary.empty())
        add(attributeText(primary, "Start"));
    eachChild(primary, "RhumbLineRoute",
              [&add](pugi::xml_node leg) { add(attributeText(leg, "To")); });
    return plan;
}

}  // namespace korvel
