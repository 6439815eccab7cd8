#include "compiler/sources/AirportRules.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <cmath>
#include <utility>

#include "base/Ascii.h"
#include "base/AsciiText.h"
#include "compiler/sources/Fields.h"
#include "geo/Geodesy.h"
#include "geo/Units.h"

namespace korvel {

namespace {

bool isDigit(char c) { return c >= '0' && c <= '9'; }

/// The fifty states, Alaska and Hawaii included; the islands west of the 180th meridian are left
/// out, which have no such identifiers.
bool inUnitedStates(const GeoDegrees& position) {
    return position.lat > 18.0 && position.lat < 72.0 && position.lon > -180.0 &&
           position.lon < -66.0;
}

}  // namespace

bool isPrivateIdentifier(std::string_view ident, const GeoDegrees& position) {
    if (ident.size() != 4 || !inUnitedStates(position))
        return false;
    if (std::count_if(ident.begin(), ident.end(), isDigit) != 2)
        return false;
    const auto* const first = std::find_if_not(ident.begin(), ident.end(), isDigit);
    return std::next(first) != ident.end() && !isDigit(*std::next(first));
}

bool saysClosed(std::string_view name) {
    return name.starts_with("[X]") || inCapitals(name).find("CLOSED") != std::string::npos;
}

int runwayNumber(std::string_view designator) {
    const auto digits = designator.substr(0, designator.find_first_not_of("0123456789"));
    const auto number = wholeInt(digits);
    return number && digits.size() <= 2 && *number >= 1 && *number <= 36 ? *number : 0;
}

void orderEnds(SourceRunway& runway) {
    auto& [low, high] = runway.ends;
    if (!high.id.empty() && runwayNumber(high.id) < runwayNumber(low.id))
        std::swap(low, high);
}

int lengthBetweenFt(const GeoDegrees& a, const GeoDegrees& b) {
    return RoundToInt(DistanceNm(toGeoPoint(a), toGeoPoint(b)) * kFeetPerNm);
}

void noteDisplaced(SourceRunway& runway, std::size_t end, std::optional<int> feet) {
    if (!feet)
        return;
    runway.info.append(runway.info.empty() ? "Displaced thr " : ", ");
    runway.info.append(runway.ends.at(end).id + " " + std::to_string(*feet) + " ft");
}

std::string informationFor(std::string_view fullName) {
    constexpr std::size_t kShownNameLength = 20;
    return fullName.size() > kShownNameLength ? std::string(fullName) : std::string();
}

void nameAirport(SourceAirport& airport, std::string_view fullName, std::string_view town) {
    airport.name = fullName;
    airport.info = informationFor(fullName);
    if (town.empty())
        return;
    if (fullName.find(town) == std::string_view::npos)
        airport.info.append(airport.info.empty() ? "" : ", ").append(town);
    airport.towns.emplace_back(town);
}

std::string commType(std::string_view name, std::string_view service) {
    constexpr std::array kServices{"ATIS", "AWOS",  "ASOS", "INFO", "CTAF", "UNIC",  "MULT", "DEL",
                                   "CLD",  "CLNC",  "GND",  "GROU", "TWR",  "TOWER", "AFIS", "APP",
                                   "DEP",  "RADAR", "RDR",  "RDO",  "RADI", "ARR",   "CNTR", "CONT",
                                   "FSS",  "FIS",   "DIR",  "GCA",  "TAXI", "START", "TMA",  "TCA",
                                   "VOLM", " MF",   "REMO", "TRML", "ARTC", "FREQ"};
    std::string type = toAsciiText(name);
    const std::string words = inCapitals(type);
    const bool says = std::any_of(kServices.begin(), kServices.end(), [&](const char* known) {
        return words.find(known) != std::string::npos;
    });
    if (!says)
        type.append(type.empty() ? "" : " ").append(service);
    return type;
}

}  // namespace korvel
