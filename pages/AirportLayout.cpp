#include "pages/AirportLayout.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>

#include "cockpit/PlaceDetails.h"
#include "geo/Geodesy.h"
#include "geo/Units.h"
#include "navdb/records/AirportRecord.h"

namespace korvel {
namespace {

constexpr double kMarginHeights = 3.4;  // of the type size: room for numbers and patterns
constexpr double kThinnestPx = 4;
constexpr double kUsualWidthFt = 75;
constexpr double kUsualLengthFt = 3000;  // of a runway whose length is unknown, beside others
constexpr std::size_t kMostInARow = 4;

double lengthFt(const RunwayRecord& runway) { return runway.lengthFt.value_or(0); }
double widthFt(const RunwayRecord& runway) { return runway.widthFt.value_or(kUsualWidthFt); }

/// Feet east and north (upwards, so negative y) of the origin, on the plane that touches it.
Point onPlane(GeoPoint origin, GeoPoint point) {
    const double east = PositiveMod(point.lon - origin.lon + kPi, kTwoPi) - kPi;
    const double feet = kNmPerRadian * kFeetPerNm;
    return {east * std::cos(origin.lat) * feet, (origin.lat - point.lat) * feet};
}

bool liesInPlace(const RunwayRecord& runway) {
    return runway.ends.size() == 2 && IsValid(runway.ends[0].position) &&
           IsValid(runway.ends[1].position);
}

/// Moves and scales shapes so that they fill the area's middle.
double fit(std::vector<RunwayShape>& shapes, const Rect& area) {
    double left = std::numeric_limits<double>::max();
    double top = left;
    double right = -left;
    double bottom = -left;
    for (const RunwayShape& shape : shapes)
        for (const Point point : {shape.from, shape.to}) {
            left = std::min(left, point.x);
            right = std::max(right, point.x);
            top = std::min(top, point.y);
            bottom = std::max(bottom, point.y);
        }
    const double scale = std::min(area.width / std::max(right - left, 1.0),
                                  area.height / std::max(bottom - top, 1.0));
    const Point middle{(left + right) / 2, (top + bottom) / 2};
    const auto placed = [&](Point point) {
        return Point{area.center().x + (point.x - middle.x) * scale,
                     area.center().y + (point.y - middle.y) * scale};
    };
    for (RunwayShape& shape : shapes) {
        shape.from = placed(shape.from);
        shape.to = placed(shape.to);
    }
    return scale;
}

void layOutInPlace(const AirportRecord& airport, const Rect& area, AirportPictureLayout& layout) {
    const GeoPoint origin = airport.runways.front().ends.front().position;
    for (std::size_t i = 0; i < airport.runways.size(); ++i) {
        const RunwayRecord& runway = airport.runways[i];
        layout.runways.push_back({.runway = i,
                                  .from = onPlane(origin, runway.ends[0].position),
                                  .to = onPlane(origin, runway.ends[1].position)});
    }
    layout.pixelsPerFt = fit(layout.runways, area);
    layout.inPlace = true;
}

void layOutSideBySide(const AirportRecord& airport, const Rect& area,
                      AirportPictureLayout& layout) {
    const std::size_t count = airport.runways.size();
    const std::size_t columns = std::min(count, kMostInARow);
    const std::size_t rows = (count + columns - 1) / columns;
    const double cellWidth = area.width / static_cast<double>(columns);
    const double cellHeight = area.height / static_cast<double>(rows);
    const double margin = count > 1 ? 0.65 : 1.0;
    const double room = margin * std::min(cellWidth, cellHeight);
    double longestFt = 0;
    for (const RunwayRecord& runway : airport.runways)
        longestFt = std::max(longestFt, lengthFt(runway));
    layout.pixelsPerFt = longestFt > 0 ? room / longestFt : 0;
    for (std::size_t i = 0; i < count; ++i) {
        const RunwayRecord& runway = airport.runways[i];
        double length = room;
        if (longestFt > 0)
            length = layout.pixelsPerFt *
                     (runway.lengthFt ? lengthFt(runway) : std::min(kUsualLengthFt, longestFt));
        const double deg = runwayTrueDeg(runway, airport).value_or(0);
        const Point half{std::sin(deg * kDegToRad) * length / 2,
                         -std::cos(deg * kDegToRad) * length / 2};
        const std::size_t column = i % columns;
        const std::size_t row = i / columns;
        const Point center{area.x + cellWidth * (static_cast<double>(column) + 0.5),
                           area.y + cellHeight * (static_cast<double>(row) + 0.5)};
        layout.runways.push_back({.runway = i,
                                  .from = {center.x - half.x, center.y - half.y},
                                  .to = {center.x + half.x, center.y + half.y}});
    }
}

}  // namespace

AirportPictureLayout layOutAirport(const AirportRecord& airport, const Rect& area, double textPx) {
    AirportPictureLayout layout;
    if (airport.runways.empty())
        return layout;
    const double margin = kMarginHeights * textPx;
    const Rect room{area.x + margin, area.y + margin, std::max(area.width - 2 * margin, 1.0),
                    std::max(area.height - 2 * margin, 1.0)};
    if (std::all_of(airport.runways.begin(), airport.runways.end(), liesInPlace))
        layOutInPlace(airport, room, layout);
    else
        layOutSideBySide(airport, room, layout);
    for (RunwayShape& shape : layout.runways)
        shape.widthPx =
            std::max(widthFt(airport.runways[shape.runway]) * layout.pixelsPerFt, kThinnestPx);
    return layout;
}

}  // namespace korvel
