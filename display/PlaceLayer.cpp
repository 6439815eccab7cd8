#include "display/PlaceLayer.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <optional>
#include <string>
#include <vector>

#include "display/Clip.h"
#include "display/MapFrame.h"
#include "display/PlaceLayout.h"
#include "nav/Geodesy.h"
#include "nav/TextNumbers.h"
#include "nav/WholeDegreeTrig.h"
#include "navdb/DatabaseTables.h"

namespace korvel {
namespace {

constexpr double kOutline = 1.5;
constexpr double kDotPx = 1.7;
constexpr int kFullCircle = 360;

/// A scheme may give a symbol the colour of the map, because its terrain is of another one. What
/// nobody could see takes the colour of names instead.
ColorValue visible(ColorValue color, const MapColorCache& colors) {
    const ColorValue background = colors[ColorKey::MapBackground];
    const auto difference = [&](unsigned (*part)(ColorValue)) {
        return std::abs(static_cast<int>(part(color)) - static_cast<int>(part(background)));
    };
    constexpr int kBarelySeen = 60;
    const int sum = difference(RedOf) + difference(GreenOf) + difference(BlueOf);
    return sum < kBarelySeen ? colors[ColorKey::MapNavaid] : color;
}

/// A point at a distance and a bearing on the screen, from up to the right.
Point polar(Point center, double radius, int deg) {
    return {center.x + radius * SinDeg(deg), center.y - radius * CosDeg(deg)};
}

std::vector<Point> regular(Point center, double radius, int corners, int firstDeg) {
    std::vector<Point> points;
    points.reserve(static_cast<std::size_t>(corners));
    for (int i = 0; i < corners; ++i)
        points.push_back(polar(center, radius, firstDeg + i * kFullCircle / corners));
    return points;
}

/// Draws symbols. Strokes of one colour are gathered and drawn in one go.
class SymbolPainter {
 public:
    SymbolPainter(const MapFrame& frame, Canvas& canvas)
        : frame_(frame),
          canvas_(canvas),
          icons_(frame.places->options.icons),
          background_(frame.colors.plainSymbolBackground()),
          airport_(visible(frame.colors.airportPen().color, frame.colors)),
          vor_(visible(frame.colors.vorPen().color, frame.colors)),
          ndb_(visible(frame.colors.ndbPen().color, frame.colors)),
          fix_(visible(frame.colors.fixPen().color, frame.colors)) {}

    void paint(const PlaceMark& mark) {
        const PlaceClass placeClass = mark.place->placeClass;
        const double radius = symbolRadius(placeClass, frame_.textPx);
        if (mark.runwaysToScale)
            return;
        if (isAirport(placeClass))
            airport(mark, radius);
        else if (isVor(placeClass))
            vor(mark.at, radius);
        else if (placeClass == PlaceClass::Ndb)
            ndb(mark.at, radius);
        else if (placeClass == PlaceClass::VisualPoint)
            visualPoint(mark.at, radius);
        else if (placeClass == PlaceClass::UserFix)
            userFix(mark.at, radius);
        else
            fix(mark.at, radius);
    }

    void finish() {
        canvas_.lines(dots_, {ndb_, kDotPx, PenStyle::Solid});
        canvas_.lines(airportStrokes_, {airport_, 2, PenStyle::Solid});
        canvas_.lines(lightStrokes_, {background_, 2, PenStyle::Solid});
    }

 private:
    // Filled icons or outlines on a small piece of background, as the pilot likes it.
    Brush fill(ColorValue color) const { return Brush{icons_ ? color : background_}; }

    void airport(const PlaceMark& mark, double radius) {
        const Place& place = mark.place->place;
        const bool isPrivate = (place.flags & kAirportPrivate) != 0;
        const bool tower = mark.place->placeClass == PlaceClass::TowerAirport;
        canvas_.circle(mark.at, radius, fill(airport_),
                       Pen{airport_, tower ? 2.5 : kOutline,
                           isPrivate && !icons_ ? PenStyle::Dot : PenStyle::Solid});
        if (mark.place->placeClass == PlaceClass::Heliport)
            return letterH(mark.at, radius * 0.5);
        if (mark.place->placeClass == PlaceClass::SeaplaneBase)
            return anchor(mark.at, radius * 0.65);
        if (const std::optional<int> direction = directionOf(*mark.place))
            runwayDirection(mark, radius, *direction);
    }

    void runwayDirection(const PlaceMark& mark, double radius, int trueDeg) {
        const int deg = trueDeg - frame_.projection.angleDeg();
        const double reach = radius * (icons_ ? 0.75 : kRunwayStrokeShare);
        (icons_ ? lightStrokes_ : airportStrokes_)
            .push_back({polar(mark.at, reach, deg), polar(mark.at, -reach, deg)});
    }

    std::vector<Segment>& strokesInside() { return icons_ ? lightStrokes_ : airportStrokes_; }

    void letterH(Point at, double half) {
        const double side = half * 0.8;
        for (const double x : {-side, side})
            strokesInside().push_back({{at.x + x, at.y - half}, {at.x + x, at.y + half}});
        strokesInside().push_back({{at.x - side, at.y}, {at.x + side, at.y}});
    }

    void anchor(Point at, double half) {
        strokesInside().push_back({{at.x, at.y - half}, {at.x, at.y + half}});
        strokesInside().push_back(
            {{at.x - half * 0.5, at.y - half * 0.5}, {at.x + half * 0.5, at.y - half * 0.5}});
        for (const double side : {-1.0, 1.0})
            strokesInside().push_back(
                {{at.x, at.y + half}, {at.x + side * half * 0.8, at.y + half * 0.3}});
    }

    void vor(Point at, double radius) {
        canvas_.polygon(regular(at, radius, 6, 30), fill(vor_), Pen{vor_, kOutline});
        canvas_.circle(at, radius * 0.22, Brush{icons_ ? background_ : vor_}, std::nullopt);
    }

    // A disc of dots around a ring.
    void ndb(Point at, double radius) {
        const auto ring = [&](double share, int count) {
            for (int i = 0; i < count; ++i) {
                const Point dot = polar(at, radius * share, i * kFullCircle / count);
                dots_.push_back({{dot.x - kDotPx / 2, dot.y}, {dot.x + kDotPx / 2, dot.y}});
            }
        };
        canvas_.circle(at, radius * 0.3, fill(ndb_), Pen{ndb_, kOutline});
        ring(0.65, 9);
        ring(1.0, 14);
    }

    void fix(Point at, double radius) {
        canvas_.polygon(regular({at.x, at.y + radius * 0.2}, radius, 3, 0), fill(fix_),
                        Pen{fix_, kOutline});
    }

    void visualPoint(Point at, double radius) {
        canvas_.polygon(regular(at, radius, 4, 0), fill(fix_), Pen{fix_, kOutline});
        canvas_.circle(at, radius * 0.25, Brush{icons_ ? background_ : fix_}, std::nullopt);
    }

    // A square with a cross: like nothing on a chart.
    void userFix(Point at, double radius) {
        canvas_.polygon(regular(at, radius, 4, 45), fill(fix_), Pen{fix_, 2});
        const ColorValue ink = icons_ ? background_ : fix_;
        const double arm = radius * 0.4;
        canvas_.lines(std::array{Segment{{at.x - arm, at.y}, {at.x + arm, at.y}},
                                 Segment{{at.x, at.y - arm}, {at.x, at.y + arm}}},
                      {ink, 2, PenStyle::Solid});
    }

    const MapFrame& frame_;
    Canvas& canvas_;
    bool icons_;
    ColorValue background_;
    ColorValue airport_;
    ColorValue vor_;
    ColorValue ndb_;
    ColorValue fix_;
    std::vector<Segment> dots_;
    std::vector<Segment> airportStrokes_;
    std::vector<Segment> lightStrokes_;
};

// Compass roses

constexpr double kRoseNm = 3;
constexpr double kSmallestRosePx = 44;
constexpr double kLargestRosePx = 110;
constexpr double kRosesApart = 1.8;  // in radii
constexpr double kRoseFaded = 0.35;

void paintRose(const MapFrame& frame, Canvas& canvas, Point center, double radius, int northDeg) {
    const ColorValue background = frame.colors[ColorKey::MapBackground];
    const ColorValue ink =
        blended(visible(frame.colors[ColorKey::MapVor], frame.colors), background, kRoseFaded);
    std::vector<Segment> ticks;
    for (int deg = 0; deg < kFullCircle; deg += 10) {
        const double length = radius * (deg % 30 == 0 ? 0.16 : 0.08);
        ticks.push_back({polar(center, radius, northDeg + deg),
                         polar(center, radius - length, northDeg + deg)});
    }
    // Magnetic north as an arrow.
    ticks.push_back({center, polar(center, radius, northDeg)});
    for (const int side : {-4, 4})
        ticks.push_back(
            {polar(center, radius, northDeg), polar(center, radius * 0.84, northDeg + side)});
    canvas.circle(center, radius, std::nullopt, Pen{ink, 1, PenStyle::Solid});
    canvas.lines(ticks, {ink, 1, PenStyle::Solid});

    const TextStyle style{.font = {.height = std::max(11.0, std::round(frame.textPx * 0.7))},
                          .color = ink,
                          .alignX = AlignX::Center,
                          .alignY = AlignY::Middle,
                          .halo = background};
    const int step = radius > 5 * style.font.height ? 30 : 90;
    for (int deg = step; deg <= kFullCircle; deg += step)
        canvas.text(polar(center, radius * 0.72, northDeg + deg), formatInt(deg / 10), style);
}

}  // namespace

void paintCompassRoses(const MapFrame& frame, Canvas& canvas) {
    if (frame.places == nullptr || !frame.places->options.shows(PlaceLayerBit::CompassRoses))
        return;
    const double radius =
        std::clamp(kRoseNm * frame.projection.pixelsPerNm(), kSmallestRosePx, kLargestRosePx);
    const Rect room = grown(frame.view, radius);
    std::vector<Point> roses;
    for (const MapPlace& vor : frame.places->places) {
        if (!isVor(vor.placeClass) || !vor.variationDeg ||
            !isShown(vor.place, vor.placeClass, frame.rangeNm, frame.places->options))
            continue;
        const Point center = frame.projection.project(vor.place.position);
        const auto meets = [&](Point other) {
            return std::hypot(center.x - other.x, center.y - other.y) < kRosesApart * radius;
        };
        // Two roses on top of each other could not be read: the more important VOR has its own.
        if (!room.contains(center) || std::any_of(roses.begin(), roses.end(), meets))
            continue;
        roses.push_back(center);
        paintRose(frame, canvas, center, radius,
                  RoundToInt(*vor.variationDeg) - frame.projection.angleDeg());
    }
}

void paintPlaces(const MapFrame& frame, Canvas& canvas) {
    if (frame.places == nullptr)
        return;
    const PlaceLayout layout = layOutPlaces(frame, canvas);
    SymbolPainter symbols(frame, canvas);
    // The most important ones on top.
    std::for_each(layout.marks.rbegin(), layout.marks.rend(),
                  [&symbols](const PlaceMark& mark) { symbols.paint(mark); });
    symbols.finish();
    for (const PlaceLabel& label : layout.labels)
        canvas.text(label.anchor, label.text, label.style);
}

}  // namespace korvel
