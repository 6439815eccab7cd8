#include "map/layers/PlaceSymbol.h"

#include <array>
#include <cstdlib>
#include <optional>
#include <vector>

#include "map/MapContent.h"
#include "navdb/file/DatabaseTables.h"
#include "paint/MapColorCache.h"
#include "paint/Polar.h"

namespace korvel {
namespace {

constexpr double kOutline = 1.5;
constexpr double kTowerOutline = 2.5;
constexpr double kStroke = 2;
constexpr double kDotPx = 1.7;
constexpr int kFullCircle = 360;
constexpr int kHalfCircle = 180;  // a runway looks the same from either end

// The bits of Stamp::variant.
constexpr int kIcon = 1;       // filled with its ink, otherwise with the ground
constexpr int kTower = 2;      // the bits of airports
constexpr int kPrivate = 4;    //
constexpr int kDirection = 8;  // the longest runway's, in turnDeg

bool is(const Stamp& stamp, int bit) { return (stamp.variant & bit) != 0; }

Brush body(const Stamp& stamp) { return Brush{is(stamp, kIcon) ? stamp.ink : stamp.ground}; }
/// Of what is drawn on the body.
ColorValue onBody(const Stamp& stamp) { return is(stamp, kIcon) ? stamp.ground : stamp.ink; }
Pen strokeOnBody(const Stamp& stamp) { return {onBody(stamp), kStroke, PenStyle::Solid}; }

std::vector<Point> regular(Point center, double radius, int corners, int firstDeg) {
    std::vector<Point> points;
    points.reserve(static_cast<std::size_t>(corners));
    for (int i = 0; i < corners; ++i)
        points.push_back(polar(center, radius, firstDeg + i * kFullCircle / corners));
    return points;
}

void drawAirport(Canvas& canvas, Point at, const Stamp& stamp) {
    canvas.circle(at, stamp.radius, body(stamp),
                  Pen{stamp.ink, is(stamp, kTower) ? kTowerOutline : kOutline,
                      is(stamp, kPrivate) && !is(stamp, kIcon) ? PenStyle::Dot : PenStyle::Solid});
    if (!is(stamp, kDirection))
        return;
    const double half = stamp.radius * (is(stamp, kIcon) ? 0.75 : kRunwayStrokeShare);
    canvas.line(polar(at, half, stamp.turnDeg), polar(at, -half, stamp.turnDeg),
                strokeOnBody(stamp));
}

void drawHeliport(Canvas& canvas, Point at, const Stamp& stamp) {
    drawAirport(canvas, at, stamp);
    const double half = stamp.radius * 0.5;
    const double side = half * 0.8;
    canvas.lines(std::array{Segment{{at.x - side, at.y - half}, {at.x - side, at.y + half}},
                            Segment{{at.x + side, at.y - half}, {at.x + side, at.y + half}},
                            Segment{{at.x - side, at.y}, {at.x + side, at.y}}},
                 strokeOnBody(stamp));
}

/// An anchor.
void drawSeaplaneBase(Canvas& canvas, Point at, const Stamp& stamp) {
    drawAirport(canvas, at, stamp);
    const double half = stamp.radius * 0.65;
    const Point foot{at.x, at.y + half};
    canvas.lines(std::array{Segment{{at.x, at.y - half}, foot},
                            Segment{{at.x - half * 0.5, at.y - half * 0.5},
                                    {at.x + half * 0.5, at.y - half * 0.5}},
                            Segment{foot, {at.x - half * 0.8, at.y + half * 0.3}},
                            Segment{foot, {at.x + half * 0.8, at.y + half * 0.3}}},
                 strokeOnBody(stamp));
}

void drawVor(Canvas& canvas, Point at, const Stamp& stamp) {
    canvas.polygon(regular(at, stamp.radius, 6, 30), body(stamp), Pen{stamp.ink, kOutline});
    canvas.circle(at, stamp.radius * 0.22, Brush{onBody(stamp)}, std::nullopt);
}

/// A disc of dots around a ring.
void drawNdb(Canvas& canvas, Point at, const Stamp& stamp) {
    std::vector<Segment> dots;
    const auto ring = [&](double share, int count) {
        for (int i = 0; i < count; ++i) {
            const Point dot = polar(at, stamp.radius * share, i * kFullCircle / count);
            dots.push_back({{dot.x - kDotPx / 2, dot.y}, {dot.x + kDotPx / 2, dot.y}});
        }
    };
    canvas.circle(at, stamp.radius * 0.3, body(stamp), Pen{stamp.ink, kOutline});
    ring(0.65, 9);
    ring(1.0, 14);
    canvas.lines(dots, {stamp.ink, kDotPx, PenStyle::Solid});
}

void drawFix(Canvas& canvas, Point at, const Stamp& stamp) {
    canvas.polygon(regular({at.x, at.y + stamp.radius * 0.2}, stamp.radius, 3, 0), body(stamp),
                   Pen{stamp.ink, kOutline});
}

void drawVisualPoint(Canvas& canvas, Point at, const Stamp& stamp) {
    canvas.polygon(regular(at, stamp.radius, 4, 0), body(stamp), Pen{stamp.ink, kOutline});
    canvas.circle(at, stamp.radius * 0.25, Brush{onBody(stamp)}, std::nullopt);
}

/// A square with a cross: like nothing on a chart.
void drawUserFix(Canvas& canvas, Point at, const Stamp& stamp) {
    canvas.polygon(regular(at, stamp.radius, 4, 45), body(stamp), Pen{stamp.ink, kStroke});
    const double arm = stamp.radius * 0.4;
    canvas.lines(std::array{Segment{{at.x - arm, at.y}, {at.x + arm, at.y}},
                            Segment{{at.x, at.y - arm}, {at.x, at.y + arm}}},
                 strokeOnBody(stamp));
}

}  // namespace

ColorValue visible(ColorValue color, const MapColorCache& colors) {
    const ColorValue background = colors[ColorKey::MapBackground];
    const auto difference = [&](unsigned (*part)(ColorValue)) {
        return std::abs(static_cast<int>(part(color)) - static_cast<int>(part(background)));
    };
    constexpr int kBarelySeen = 60;
    const int sum = difference(RedOf) + difference(GreenOf) + difference(BlueOf);
    return sum < kBarelySeen ? colors[ColorKey::MapNavaid] : color;
}

PlaceSymbols::PlaceSymbols(const MapContent& content)
    : view_(content.view),
      icons_(content.places->options.icons),
      background_(content.colors.plainSymbolBackground()),
      airport_(visible(content.colors.airportPen().color, content.colors)),
      vor_(visible(content.colors.vorPen().color, content.colors)),
      ndb_(visible(content.colors.ndbPen().color, content.colors)),
      fix_(visible(content.colors.fixPen().color, content.colors)) {}

void PlaceSymbols::paint(Canvas& canvas, const PlaceMark& mark) const {
    if (!mark.runwaysToScale)
        canvas.stamp(mark.at, stampOf(*mark.place));
}

Stamp PlaceSymbols::stampOf(const MapPlace& place) const {
    const PlaceClass placeClass = place.placeClass;
    Stamp stamp{.draw = drawFix,
                .ink = fix_,
                .ground = background_,
                .radius = symbolRadius(place, view_.textPx),
                .variant = icons_ ? kIcon : 0};
    if (isVor(placeClass)) {
        stamp.draw = drawVor;
        stamp.ink = vor_;
    } else if (placeClass == PlaceClass::Ndb) {
        stamp.draw = drawNdb;
        stamp.ink = ndb_;
    } else if (placeClass == PlaceClass::VisualPoint) {
        stamp.draw = drawVisualPoint;
    } else if (placeClass == PlaceClass::UserFix) {
        stamp.draw = drawUserFix;
    } else if (isAirport(placeClass)) {
        describeAirport(place, stamp);
    }
    // The lowest corners of a fix lie deeper than its radius.
    stamp.reach = kRunwayStrokeShare * stamp.radius + kTowerOutline;
    return stamp;
}

void PlaceSymbols::describeAirport(const MapPlace& place, Stamp& stamp) const {
    stamp.ink = airport_;
    if (place.placeClass == PlaceClass::TowerAirport)
        stamp.variant |= kTower;
    if ((place.place.flags & kAirportPrivate) != 0)
        stamp.variant |= kPrivate;
    // Paved is filled and grass hollow, whatever navaids look like; the dots of private ones need
    // their rim.
    const bool isHard =
        place.placeClass == PlaceClass::TowerAirport || place.placeClass == PlaceClass::HardAirport;
    if (isHard && !is(stamp, kPrivate))
        stamp.variant |= kIcon;
    else if (!isHard)
        stamp.variant &= ~kIcon;
    if (place.placeClass == PlaceClass::Heliport)
        stamp.draw = drawHeliport;
    else if (place.placeClass == PlaceClass::SeaplaneBase)
        stamp.draw = drawSeaplaneBase;
    else
        stamp.draw = drawAirport;
    if (const std::optional<int> direction = directionOf(place)) {
        stamp.variant |= kDirection;
        const int deg = (*direction - view_.projection.angleDeg()) % kHalfCircle;
        stamp.turnDeg = deg < 0 ? deg + kHalfCircle : deg;
    }
}

}  // namespace korvel
