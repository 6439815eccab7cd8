#include "nav/plan/WaypointList.h"

#include <algorithm>
#include <cstdint>
#include <optional>
#include <utility>

#include "base/TextNumbers.h"
#include "geo/Geodesy.h"
#include "nav/plan/PlaceLookup.h"
#include "nav/plan/RouteWords.h"
#include "platform/FileIo.h"

namespace korvel {
namespace {

constexpr double kSamePlaceNm = 10.0;

struct Waypoint {
    char source = 0;
    char kind = 0;
    std::string_view ident{};
    GeoPoint position{};
    std::int32_t altitudeFt = 0;
};

/// "%c" and the white space behind it; 0 at the end of the text.
char takeLetter(std::string_view& text) {
    const char letter = text.empty() ? '\0' : text.front();
    text.remove_prefix(std::min<std::size_t>(1, text.size()));
    text.remove_prefix(std::min(text.find_first_not_of(" \t"), text.size()));
    return letter;
}

std::string_view takeWord(std::string_view& text) {
    const std::string_view word = text.substr(0, text.find_first_of(" \t"));
    text.remove_prefix(word.size());
    text.remove_prefix(std::min(text.find_first_not_of(" \t"), text.size()));
    return word;
}

/// Hemisphere, degrees and minutes, as radians. Nothing when they are not there or out of range.
std::optional<double> takeCoordinate(std::string_view& text, char negative, int limitDeg) {
    const char hemisphere = takeLetter(text);
    const auto wholeDeg = scanInt(text);
    const auto minutes = wholeDeg ? scanDouble(text) : std::nullopt;
    if (!minutes || *wholeDeg < 0 || !(*minutes >= 0.0 && *minutes <= 60.0))
        return std::nullopt;
    const double degrees = *wholeDeg + *minutes * 0.016666666666666666;
    if (degrees > limitDeg)
        return std::nullopt;
    text.remove_prefix(std::min(text.find_first_not_of(" \t"), text.size()));
    return (hemisphere == negative ? -degrees : degrees) * kDegToRad;
}

std::optional<Waypoint> parseWaypoint(std::string_view fields) {
    Waypoint waypoint;
    waypoint.source = takeLetter(fields);
    waypoint.kind = takeLetter(fields);
    waypoint.ident = takeWord(fields);
    const auto lat = takeCoordinate(fields, 'S', 90);
    const auto lon = lat ? takeCoordinate(fields, 'W', 180) : std::nullopt;
    const auto altitude = lon ? scanInt(fields) : std::nullopt;
    if (!altitude || waypoint.ident.empty() || *altitude > kHighestPlannedFt)
        return std::nullopt;
    waypoint.position = {*lat, *lon};
    waypoint.altitudeFt = *altitude;
    return waypoint;
}

std::string databaseKey(const Waypoint& waypoint) {
    const char kind = waypoint.kind == 'i' || waypoint.kind == '?' ? 'f' : waypoint.kind;
    const bool known = std::string_view("avnf").find(kind) != std::string_view::npos;
    // An "f" in the list itself is not one of its kinds.
    const bool hasKind = known && waypoint.kind != 'f';
    return (hasKind ? std::string{kind, '.'} : std::string()).append(waypoint.ident);
}

/// The line of the ".fp" file, empty for a source that is passed over.
std::string planLine(const Waypoint& waypoint, PlaceLookup& lookup) {
    const std::string altitude =
        waypoint.altitudeFt > 0 ? '@' + formatFixed(waypoint.altitudeFt * 0.01, 1) : std::string();
    if (waypoint.source == 'p') {
        const std::string key = databaseKey(waypoint);
        const auto found = lookup.peekDatabase(key);
        if (found && DistanceNm(found->position, waypoint.position) < kSamePlaceNm) {
            lookup.moveTo(found->position);
            return key + altitude + "\r\n";
        }
    } else if (waypoint.source != 'u') {
        return {};
    }
    lookup.moveTo(waypoint.position);
    return "f.F-" + std::string(waypoint.ident) + altitude + ' ' + positionText(waypoint.position) +
           "\r\n";
}

std::string_view takeLine(std::string_view& text) {
    const std::string_view line = text.substr(0, text.find('\n'));
    text.remove_prefix(std::min(line.size() + 1, text.size()));
    return line.substr(0, line.find_last_not_of('\r') + 1);
}

std::filesystem::path convertedPlanPath(std::filesystem::path importPath, int number) {
    importPath.replace_extension();
    importPath += (number > 0 ? '_' + formatInt(number) : std::string()) + ".fp";
    return importPath;
}

}  // namespace

ConvertedPlan WriteConvertedPlan(const std::filesystem::path& importPath, std::string planText,
                                 int number, FileSystem& disk) {
    std::filesystem::path file = convertedPlanPath(importPath, number);
    if (!writeFileAtomically(file, planText, disk))
        file.clear();
    return {std::move(planText), std::move(file)};
}

std::optional<ConvertedPlan> ImportWaypointList(const std::filesystem::path& importPath,
                                                std::string_view text, const PlaceLookup& lookup,
                                                FileSystem& disk) {
    int current = -1;
    std::string plan;
    std::optional<ConvertedPlan> first;
    PlaceLookup planLookup = lookup;
    const auto finish = [&] {
        ConvertedPlan written =
            WriteConvertedPlan(importPath, std::exchange(plan, {}), current, disk);
        if (current == 0)
            first = std::move(written);
    };
    while (!text.empty()) {
        std::string_view line = takeLine(text);
        if (line.starts_with("FPL ")) {
            line.remove_prefix(4);
            const auto number = scanInt(line);
            if (!number)
                return std::nullopt;
            if (*number > 0 && current >= 0)
                finish();
            current = *number;
            plan.clear();
            planLookup = lookup;
        } else if (line.starts_with("FWP ")) {
            const auto waypoint = parseWaypoint(line.substr(4));
            if (!waypoint)
                return std::nullopt;
            plan += planLine(*waypoint, planLookup);
        }
    }
    if (current >= 0)
        finish();
    return first;
}

}  // namespace korvel
