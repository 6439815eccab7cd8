#include "exchange/Formats.h"

#include <algorithm>
#include <array>
#include <utility>

#include "config/Text.h"
#include "config/texts/ExchangeTexts.h"
#include "exchange/Source.h"
#include "exchange/formats/GarminFpl.h"
#include "exchange/formats/Gpx.h"
#include "exchange/formats/Igc.h"
#include "exchange/formats/Kml.h"
#include "exchange/formats/SeeYouCup.h"
#include "exchange/formats/SimulatorPlans.h"
#include "exchange/formats/XPlaneFms.h"

namespace korvel {
namespace {

struct Format {
    std::string_view name;
    std::string_view root;                    ///< of an XML document; empty for other files
    bool (*isThis)(const Source&) = nullptr;  ///< for those
    ForeignPlan (*plan)(const Source&) = nullptr;
    ForeignTrack (*track)(const Source&) = nullptr;
    ForeignWaypoints (*waypoints)(const Source&) = nullptr;
};

constexpr std::array kFormats{
    Format{"gpx", "gpx", nullptr, readGpxPlan, readGpxTrack, readGpxWaypoints},
    Format{"garmin-fpl", "flight-plan", nullptr, readGarminFpl},
    Format{"lnmpln", "LittleNavmap", nullptr, readLittleNavmap},
    Format{"fgfp", "PropertyList", nullptr, readFlightGear},
    Format{"skydemon", "DivelementsFlightPlanner", nullptr, readSkyDemon},
    Format{"xplane-fms", "", isXPlaneFms, readXPlaneFms},
    Format{"cup", "", isSeeYouCup, readSeeYouTasks, nullptr, readSeeYouWaypoints},
    Format{"igc", "", isIgc, nullptr, readIgc}};

const Format* formatOf(const Source& source) {
    const auto* const found = std::ranges::find_if(kFormats, [&source](const Format& format) {
        return format.isThis != nullptr ? format.isThis(source)
                                        : !format.root.empty() && format.root == source.rootName();
    });
    return found == kFormats.end() ? nullptr : &*found;
}

/// Why nothing can be read of it; empty where it can.
std::string refusal(const Source& source, const Format* format) {
    if (source.text().size() > kLargestForeignFile)
        return std::string(text(kExchangeTexts.fileTooLarge));
    if (source.looksLikeXml() && source.rootName().empty())
        return std::string(text(kExchangeTexts.tornFile));
    return format == nullptr ? std::string(text(kExchangeTexts.unknownFormat)) : std::string();
}

/// Reads with the format's reader of that kind; without one the file has `nothing`.
template <class Result>
Result readWith(std::string bytes, std::string_view& name, Result (*Format::*reader)(const Source&),
                const Text& nothing) {
    if (bytes.size() > kLargestForeignFile)
        return {.error = std::string(text(kExchangeTexts.fileTooLarge))};
    const Source source(std::move(bytes));
    const Format* const format = formatOf(source);
    name = format != nullptr ? format->name : std::string_view();
    if (auto refused = refusal(source, format); !refused.empty())
        return {.error = std::move(refused)};
    if (format->*reader == nullptr)
        return {.error = std::string(text(nothing))};
    return (format->*reader)(source);
}

/// Points or an error, one of them.
ForeignTrack wholeTrack(ForeignTrack track) {
    if (track.error.empty() && track.points.empty())
        track.error = text(kExchangeTexts.noTrack);
    if (!track.error.empty())
        track.points.clear();
    return track;
}

}  // namespace

ForeignPlan readForeignPlan(std::string bytes, std::string_view& format) {
    ForeignPlan plan = readWith(std::move(bytes), format, &Format::plan, kExchangeTexts.noRoute);
    std::erase_if(plan.routes, [](const ForeignRoute& route) { return route.points.empty(); });
    if (plan.error.empty() && plan.routes.empty())
        plan.error = text(kExchangeTexts.noRoute);
    return plan;
}

ForeignTrack readForeignTrack(std::string bytes, std::string_view& format) {
    return wholeTrack(readWith(std::move(bytes), format, &Format::track, kExchangeTexts.noTrack));
}

ForeignWaypoints readForeignWaypoints(std::string bytes, std::string_view& format) {
    ForeignWaypoints result =
        readWith(std::move(bytes), format, &Format::waypoints, kExchangeTexts.noWaypoints);
    if (result.error.empty() && result.waypoints.empty())
        result.error = text(kExchangeTexts.noWaypoints);
    return result;
}

ForeignFile readForeignFile(std::string bytes) {
    if (bytes.size() > kLargestForeignFile)
        return {};
    const Source source(std::move(bytes));
    const Format* const format = formatOf(source);
    if (format == nullptr)
        return {};
    const auto read = [&source](auto reader) {
        return reader != nullptr ? reader(source) : decltype(reader(source)){};
    };
    const auto holds = [](const auto& list, const std::string& error) {
        return !list.empty() || !error.empty();
    };
    const ForeignPlan plan = read(format->plan);
    const ForeignWaypoints waypoints = read(format->waypoints);
    ForeignTrack track = read(format->track);
    const ForeignContent content{.plan = holds(plan.routes, plan.error),
                                 .track = holds(track.points, track.error),
                                 .waypoints = holds(waypoints.waypoints, waypoints.error)};
    if (content.track)
        track = wholeTrack(std::move(track));
    return {.content = content, .track = std::move(track)};
}

std::optional<std::string> planAs(std::string_view format, std::string_view name,
                                  std::span<const ExportPoint> points, std::int64_t nowUnixS) {
    if (format == "gpx")
        return gpxOfPlan(name, points);
    if (format == "fpl")
        return garminFplOfPlan(name, points, nowUnixS);
    if (format == "kml")
        return kmlOfPlan(name, points);
    if (format == "fms")
        return xplaneFmsOfPlan(points, nowUnixS);
    return std::nullopt;
}

std::optional<std::string> trackAs(std::string_view format,
                                   std::span<const std::optional<ForeignTrackPoint>> points) {
    if (format == "gpx")
        return gpxOfTrack(points);
    if (format == "kml")
        return kmlOfTrack(points);
    if (format == "igc")
        return igcOfTrack(points);
    return std::nullopt;
}

}  // namespace korvel
