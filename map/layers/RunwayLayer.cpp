#include "map/layers/RunwayLayer.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>
#include <string>
#include <vector>

#include "geo/Units.h"
#include "map/MapFrame.h"
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

class RunwayPainter {
 public:
    RunwayPainter(const MapFrame& frame, Canvas& canvas)
        : frame_(frame),
          canvas_(canvas),
          room_(grown(frame.view, kMargin)),
          background_(frame.colors[ColorKey::MapBackground]) {
        numbers_ = {.font = {.height = std::max(11.0, std::round(frame.textPx * kNumberShare)),
                             .weight = FontWeight::Bold},
                    .color = frame.colors[ColorKey::MapRunwayHeading],
                    .alignX = AlignX::Center,
                    .alignY = AlignY::Middle,
                    .halo = background_};
    }

    void paint(const MapRunway& runway) {
        const Point from = frame_.projection.project(runway.ends[0]);
        const Point to = frame_.projection.project(runway.ends[1]);
        const double length = std::hypot(to.x - from.x, to.y - from.y);
        if (!clipSegment({from, to}, room_))
            return;
        surface(runway, from, to);
        if (length < kNumbersFromHeights * numbers_.font.height)
            return;
        number(runway.ids[0], from, to, length);
        number(runway.ids[1], to, from, length);
    }

 private:
    void surface(const MapRunway& runway, Point from, Point to) {
        const ColorValue ink = frame_.colors[ColorKey::MapRunway];
        const double widthFt = runway.widthFt > 0 ? runway.widthFt : kUsualWidthFt;
        const double width = std::max(widthFt / kFeetPerNm * frame_.projection.pixelsPerNm(),
                                      runway.hard ? kThinnestHardPx : kThinnestSoftPx);
        const std::vector<Point> corners = clipPolygon(runwayCorners(from, to, width), room_);
        if (corners.empty())
            return;
        if (!runway.hard) {  // grass and the like: lighter, with an edge when there is room
            const ColorValue light = blended(ink, background_, width > 4 ? 0.8 : 0.4);
            canvas_.polygon(corners, Brush{light}, Pen{blended(ink, background_, 0.3), 1});
            return;
        }
        canvas_.polygon(corners, Brush{ink}, std::nullopt);
        const std::optional<Segment> center = clipSegment({from, to}, room_);
        if (width >= kMarkingsFromPx && center)
            canvas_.line(center->from, center->to, {background_, 1, PenStyle::Dash});
    }

    // Beyond its end, where it is read on the approach.
    void number(const std::string& id, Point end, Point other, double length) {
        if (id.empty())
            return;
        const TextExtent extent = canvas_.textMeasure().measure(id, numbers_.font);
        const double away = (numbers_.font.height * 0.4 + extent.width / 2 + 2) / length;
        const Point place{end.x + (end.x - other.x) * away, end.y + (end.y - other.y) * away};
        if (frame_.labels.claim(textBox(place, extent, numbers_)))
            frame_.names.push_back({place, id, numbers_});
    }

    const MapFrame& frame_;
    Canvas& canvas_;
    Rect room_;
    ColorValue background_;
    TextStyle numbers_;
};

}  // namespace

void paintRunways(const MapFrame& frame, Canvas& canvas) {
    if (frame.places == nullptr)
        return;
    RunwayPainter painter(frame, canvas);
    for (const MapPlace& place : frame.places->places)
        if (isAirport(place.placeClass) &&
            isShown(place.place, place.placeClass, frame.rangeNm, frame.places->options) &&
            showsRunways(place, frame.projection, frame.rangeNm, frame.textPx,
                         frame.places->options))
            for (const MapRunway& runway : place.details->runways)
                painter.paint(runway);
}

}  // namespace korvel
