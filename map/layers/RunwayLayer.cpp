#include "map/layers/RunwayLayer.h"

#include <algorithm>
#include <cmath>

#include "cockpit/PlaceSet.h"
#include "geo/Units.h"
#include "map/layers/PlaceLayout.h"
#include "paint/Clip.h"
#include "paint/Shapes.h"
#include "paint/TextBox.h"

namespace korvel {
namespace {

constexpr double kThinnestHardPx = 3;
constexpr double kThinnestSoftPx = 2;
constexpr double kUsualWidthFt = 75;         // where the database does not know
constexpr double kMarkingsFromPx = 7;        // width from which a center line is drawn
constexpr double kNumberShare = 0.8;         // of the labels' type size
constexpr double kNumbersFromHeights = 3.5;  // length from which ends are numbered
constexpr double kMargin = 8;
constexpr double kEdgeFromPx = 4;  // width from which a soft runway has room for its edge

}  // namespace

void RunwayLayer::layOut(const TextMeasure& texts, LabelRoom& room) {
    const PlaceSet* places = content().places;
    if (places == nullptr)
        return;
    for (const MapPlace& place : places->places)
        if (isAirport(place.placeClass) &&
            isShown(place.place, place.placeClass, view().rangeNm, places->options) &&
            showsRunways(place, view().projection, view().rangeNm, view().textPx, places->options))
            for (const MapRunway& runway : place.details->runways)
                add(runway, texts, room);
}

void RunwayLayer::add(const MapRunway& runway, const TextMeasure& texts, LabelRoom& room) {
    const Point from = view().projection.project(runway.ends[0]);
    const Point to = view().projection.project(runway.ends[1]);
    const double length = std::hypot(to.x - from.x, to.y - from.y);
    if (!clipSegment({from, to}, grown(view().area, kMargin)))
        return;
    addSurface(runway, from, to);
    if (length < kNumbersFromHeights * numberStyle().font.height)
        return;
    addNumber(runway.ids[0], from, to, texts, room);
    addNumber(runway.ids[1], to, from, texts, room);
}

void RunwayLayer::addSurface(const MapRunway& runway, Point from, Point to) {
    const Rect room = grown(view().area, kMargin);
    const double widthFt = runway.widthFt > 0 ? runway.widthFt : kUsualWidthFt;
    const double width = std::max(widthFt / kFeetPerNm * view().projection.pixelsPerNm(),
                                  runway.hard ? kThinnestHardPx : kThinnestSoftPx);
    Surface surface{.corners = clipPolygon(runwayCorners(from, to, width), room),
                    .centerLine = {},
                    .hard = runway.hard,
                    .wide = width > kEdgeFromPx};
    if (surface.corners.empty())
        return;
    if (runway.hard && width >= kMarkingsFromPx)
        surface.centerLine = clipSegment({from, to}, room);
    surfaces_.push_back(std::move(surface));
}

/// Beyond its end, where it is read on the approach.
void RunwayLayer::addNumber(const std::string& id, Point end, Point other, const TextMeasure& texts,
                            LabelRoom& room) {
    if (id.empty())
        return;
    const TextStyle style = numberStyle();
    const TextExtent extent = texts.measure(id, style.font);
    const double length = std::hypot(end.x - other.x, end.y - other.y);
    const double away = (style.font.height * 0.4 + extent.width / 2 + 2) / length;
    const Point at{end.x + (end.x - other.x) * away, end.y + (end.y - other.y) * away};
    if (room.taken.claim(textBox(at, extent, style)))
        numbers_.push_back({id, at});
}

TextStyle RunwayLayer::numberStyle() const {
    return {.font = {.height = std::max(11.0, std::round(view().textPx * kNumberShare)),
                     .weight = FontWeight::Bold},
            .color = color(ColorKey::MapRunwayHeading),
            .alignX = AlignX::Center,
            .alignY = AlignY::Middle,
            .halo = color(ColorKey::MapBackground)};
}

void RunwayLayer::paint(Canvas& canvas) const {
    const ColorValue ink = color(ColorKey::MapRunway);
    const ColorValue background = color(ColorKey::MapBackground);
    for (const Surface& surface : surfaces_) {
        if (!surface.hard) {  // grass and the like: lighter, with an edge when there is room
            const ColorValue light = blended(ink, background, surface.wide ? 0.8 : 0.4);
            canvas.polygon(surface.corners, Brush{light}, Pen{blended(ink, background, 0.3), 1});
            continue;
        }
        canvas.polygon(surface.corners, Brush{ink}, std::nullopt);
        if (const auto& line = surface.centerLine)
            canvas.line(line->from, line->to, {background, 1, PenStyle::Dash});
    }
}

void RunwayLayer::paintWords(Canvas& canvas) const {
    const TextStyle style = numberStyle();
    for (const Number& number : numbers_)
        canvas.text(number.at, number.id, style);
}

}  // namespace korvel
