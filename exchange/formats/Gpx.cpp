#include "exchange/formats/Gpx.h"

#include <algorithm>

#include "config/Text.h"
#include "config/texts/ExchangeTexts.h"
#include "exchange/XmlText.h"
#include "geo/Geodesy.h"
#include "geo/Units.h"

namespace korvel {
namespace {

constexpr double kKnotsPerMetreSecond = 3600.0 / 1852.0;

std::optional<GeoPoint> positionOf(pugi::xml_node point) {
    return pointOf(point.attribute("lat").as_string(), point.attribute("lon").as_string());
}

/// One program writes identifiers into the symbol, beside names that may be empty.
bool isIdentSymbol(std::string_view text) {
    return text.size() >= 2 && text.size() <= 5 &&
           std::ranges::all_of(
               text, [](char c) { return (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9'); });
}

constexpr std::string_view kHead =
    "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
    "<gpx version=\"1.1\" creator=\"Korvel Pro\" xmlns=\"http://www.topografix.com/GPX/1/1\">\n";

}  // namespace

ForeignPlan readGpxPlan(const Source& source) {
    const bool symbolsAreIdents = attributeText(source.root(), "creator").starts_with("SkyDemon");
    ForeignPlan plan;
    eachChild(source.root(), "rte", [&](pugi::xml_node rte) {
        ForeignRoute& route = plan.routes.emplace_back();
        route.name = childText(rte, "name");
        eachChild(rte, "rtept", [&](pugi::xml_node rtept) {
            const auto position = positionOf(rtept);
            if (!position)
                plan.error = text(kExchangeTexts.badCoordinate);
            ForeignPoint point;
            point.name = childText(rtept, "name");
            point.ident = point.name;
            if (const std::string symbol = childText(rtept, "sym");
                symbolsAreIdents && isIdentSymbol(symbol))
                point.ident = symbol;
            point.position = position.value_or(GeoPoint{});
            route.points.push_back(std::move(point));
        });
    });
    return plan;
}

ForeignTrack readGpxTrack(const Source& source) {
    ForeignTrack track;
    const auto take = [&track](pugi::xml_node trkpt) {
        const auto position = positionOf(trkpt);
        if (!position)
            track.error = text(kExchangeTexts.badCoordinate);
        if (track.points.size() >= kMostForeignPoints)
            track.error = text(kExchangeTexts.tooManyPoints);
        if (!track.error.empty())
            return;
        track.points.emplace_back(ForeignTrackPoint{
            .position = *position,
            .unixS = utcOf(childValue(trkpt, "time")),
            .altitudeFt = wholeNumber(childValue(trkpt, "ele")).value_or(0.0) * kFeetPerMetre,
            .groundSpeedKt =
                wholeNumber(childValue(trkpt, "speed")).value_or(0.0) * kKnotsPerMetreSecond,
            .trackDeg = wholeNumber(childValue(trkpt, "course")).value_or(0.0)});
    };
    eachChild(source.root(), "trk", [&](pugi::xml_node trk) {
        eachChild(trk, "trkseg", [&](pugi::xml_node segment) {
            if (!track.points.empty() && track.points.back())
                track.points.emplace_back();
            eachChild(segment, "trkpt", take);
        });
    });
    if (!track.points.empty() && !track.points.back())
        track.points.pop_back();
    return track;
}

ForeignWaypoints readGpxWaypoints(const Source& source) {
    ForeignWaypoints result;
    eachChild(source.root(), "wpt", [&result](pugi::xml_node wpt) {
        const auto position = positionOf(wpt);
        if (!position)
            result.error = text(kExchangeTexts.badCoordinate);
        const auto metres = wholeNumber(childValue(wpt, "ele"));
        const std::string name = childText(wpt, "name");
        result.waypoints.push_back(
            {.ident = name,
             .name = name,
             .position = position.value_or(GeoPoint{}),
             .elevationFt = metres ? std::optional(*metres * kFeetPerMetre) : std::nullopt});
    });
    return result;
}

std::string gpxOfPlan(std::string_view name, std::span<const ExportPoint> points) {
    std::string xml(kHead);
    xml += " <rte>\n  <name>" + xmlText(name) + "</name>\n";
    for (const ExportPoint& point : points)
        xml += "  <rtept lat=\"" + degreesText(point.position.lat) + "\" lon=\"" +
               degreesText(point.position.lon) + "\"><name>" + xmlText(point.ident) +
               "</name></rtept>\n";
    return xml + " </rte>\n</gpx>\n";
}

std::string gpxOfTrack(std::span<const std::optional<ForeignTrackPoint>> points) {
    std::string xml(kHead);
    xml += " <trk>\n  <trkseg>\n";
    for (const auto& point : points) {
        if (!point) {
            xml += "  </trkseg>\n  <trkseg>\n";
            continue;
        }
        xml += "   <trkpt lat=\"" + degreesText(point->position.lat) + "\" lon=\"" +
               degreesText(point->position.lon) + "\"><ele>" +
               numberText(point->altitudeFt / kFeetPerMetre, 1) + "</ele>" +
               (point->unixS ? "<time>" + isoUtc(*point->unixS) + "</time>" : "") + "</trkpt>\n";
    }
    return xml + "  </trkseg>\n </trk>\n</gpx>\n";
}

}  // namespace korvel
