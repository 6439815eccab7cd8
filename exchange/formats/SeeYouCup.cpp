#include "exchange/formats/SeeYouCup.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "base/Ascii.h"
#include "base/TextLines.h"
#include "config/Text.h"
#include "config/texts/ExchangeTexts.h"
#include "geo/Geodesy.h"
#include "geo/Units.h"

namespace korvel {
namespace {

constexpr std::string_view kTasks = "-----Related Tasks-----";
/// Stands for the place of take-off or landing, wherever that will be.
constexpr std::string_view kAnywhere = "???";

/// Fields with stray blanks around them and quotes inside of quoted texts: a quote ends a field
/// only before a comma or the end.
std::vector<std::string> fieldsOf(std::string_view line) {
    std::vector<std::string> fields;
    while (true) {
        line = trimmedLeft(line);
        std::size_t end = 0;
        std::string_view field;
        if (line.starts_with('"')) {
            end = line.find('"', 1);
            const auto endsThere = [&line](std::size_t at) {
                const std::string_view behind = trimmedLeft(line.substr(at + 1));
                return behind.empty() || behind.front() == ',';
            };
            while (end != std::string_view::npos && !endsThere(end))
                end = line.find('"', end + 1);
            field = line.substr(1, end == std::string_view::npos ? end : end - 1);
            end = end == std::string_view::npos ? line.size() : line.find(',', end);
        } else {
            end = line.find(',');
            field = trimmed(line.substr(0, end));
        }
        fields.push_back(asUtf8(field));
        if (end >= line.size())
            return fields;
        line.remove_prefix(end + 1);
    }
}

/// "5103.117N": degrees and minutes.
std::optional<double> degrees(std::string_view text, std::string_view letters, double limit) {
    text = trimmed(text);
    if (text.empty() || letters.find(text.back()) == std::string_view::npos)
        return std::nullopt;
    const bool isPositive = text.back() == letters.front();
    text.remove_suffix(1);
    const auto packed = wholeNumber(text);
    if (!packed || *packed < 0)
        return std::nullopt;
    const double whole = std::floor(*packed / 100.0);
    const double minutes = *packed - whole * 100.0;
    const double value = whole + minutes / 60.0;
    if (minutes >= 60.0 || value > limit)
        return std::nullopt;
    return isPositive ? value : -value;
}

/// "488.0m" or "15ft".
std::optional<double> elevationFt(std::string_view text) {
    text = trimmed(text);
    const bool isFeet = endsWithIgnoringCase(text, "ft");
    if (isFeet)
        text.remove_suffix(2);
    else if (endsWithIgnoringCase(text, "m"))
        text.remove_suffix(1);
    const auto value = wholeNumber(text);
    if (!value)
        return std::nullopt;
    return isFeet ? *value : *value * kFeetPerMetre;
}

struct CupFile {
    std::string error;
    std::vector<ForeignWaypoint> waypoints;
    std::vector<std::vector<std::string>> tasks;
};

bool isHeader(std::string_view line) {
    return startsWithIgnoringCase(trimmed(line), "name,code,country,lat");
}

void takeWaypoint(const std::vector<std::string>& fields, CupFile& file) {
    constexpr std::size_t kElevation = 5;
    if (fields.size() <= kElevation)
        return;
    const auto lat = degrees(fields[3], "NS", 90.0);
    const auto lon = degrees(fields[4], "EW", 180.0);
    if (!lat || !lon) {
        file.error = text(kExchangeTexts.badCoordinate);
        return;
    }
    file.waypoints.push_back({.ident = fields[1],
                              .name = fields[0],
                              .position = {.lat = *lat * kDegToRad, .lon = *lon * kDegToRad},
                              .elevationFt = elevationFt(fields[kElevation])});
}

bool isOption(std::string_view line) {
    constexpr std::array<std::string_view, 4> kWords{"Options", "ObsZone=", "STARTS=", "Point="};
    return std::ranges::any_of(
        kWords, [line](std::string_view word) { return startsWithIgnoringCase(line, word); });
}

CupFile readCup(const Source& source) {
    CupFile file;
    TextLines lines(source.text());
    bool inTasks = false;
    for (std::string_view line; lines.next(line);) {
        if (trimmed(line).empty())
            continue;
        if (line.starts_with(kTasks))
            inTasks = true;
        else if (!inTasks && !isHeader(line))
            takeWaypoint(fieldsOf(line), file);
        else if (inTasks && !isOption(line))
            file.tasks.push_back(fieldsOf(line));
    }
    return file;
}

}  // namespace

bool isSeeYouCup(const Source& source) {
    TextLines lines(source.text());
    std::string_view line;
    return lines.next(line) && isHeader(line);
}

ForeignPlan readSeeYouTasks(const Source& source) {
    const CupFile file = readCup(source);
    std::map<std::string_view, const ForeignWaypoint*> byName;
    for (const ForeignWaypoint& waypoint : file.waypoints)
        byName.try_emplace(waypoint.name, &waypoint);
    ForeignPlan plan{.error = file.error};
    for (const auto& task : file.tasks) {
        ForeignRoute& route = plan.routes.emplace_back();
        route.name = task.front();
        for (std::size_t i = 1; i < task.size(); ++i) {
            if (task[i] == kAnywhere || task[i].empty())
                continue;
            const auto found = byName.find(task[i]);
            if (found == byName.end()) {
                plan.error = formatText(kExchangeTexts.notInTable, {std::string_view(task[i])});
                return plan;
            }
            const ForeignWaypoint& waypoint = *found->second;
            route.points.push_back(
                {.ident = waypoint.ident, .name = waypoint.name, .position = waypoint.position});
        }
    }
    return plan;
}

ForeignWaypoints readSeeYouWaypoints(const Source& source) {
    CupFile file = readCup(source);
    return {.error = std::move(file.error), .waypoints = std::move(file.waypoints)};
}

}  // namespace korvel
