#include "map/profile/ProfileLabels.h"

#include <algorithm>
#include <cmath>
#include <string>

#include "config/texts/GroundTexts.h"
#include "config/texts/StatusTexts.h"
#include "geo/GeoText.h"
#include "geo/Geodesy.h"
#include "map/ground/AirspaceLines.h"
#include "map/profile/PredictedPath.h"
#include "paint/Clip.h"
#include "paint/MapColorCache.h"

namespace korvel {
namespace {

constexpr double kLineShare = 1.15;  ///< of the type's height
constexpr double kRimPx = 3;         ///< between a name and the line that it belongs to

std::optional<int> groundFt(const GroundSample& sample) {
    return sample.highestFt ? std::optional(RoundToInt(*sample.highestFt)) : std::nullopt;
}

/// The points of the line in and around a stretch.
std::pair<std::size_t, std::size_t> pointsOf(const ProfileContent& content, double fromNm,
                                             double toNm) {
    const auto most = static_cast<double>(content.ground.size() - 1);
    const auto point = [&](double steps) {
        return static_cast<std::size_t>(std::clamp(steps, 0.0, most));
    };
    return {point(std::floor(fromNm / content.line.stepNm)),
            point(std::ceil(toNm / content.line.stepNm))};
}

bool followsGround(const Airspace& airspace) {
    return airspace.floor.reference == LimitReference::Agl ||
           airspace.ceiling.reference == LimitReference::Agl;
}

}  // namespace

std::vector<Point> sliceOutline(const ProfileContent& content, const ProfileAxes& axes,
                                const AirspaceSlice& slice) {
    std::vector<Point> upper;
    std::vector<Point> lower;
    const auto add = [&](double nm, std::optional<int> ground) {
        upper.push_back(axes.at({nm, static_cast<double>(slice.airspace.ceilingFt(ground))}));
        lower.push_back(axes.at({nm, static_cast<double>(slice.airspace.floorFt(ground))}));
    };
    const auto [first, last] = pointsOf(content, slice.fromNm, slice.toNm);
    add(slice.fromNm, groundFt(content.ground[first]));
    if (followsGround(slice.airspace))
        for (std::size_t i = first; i <= last; ++i)
            if (const double nm = content.line.nmOf(i); nm > slice.fromNm && nm < slice.toNm)
                add(nm, groundFt(content.ground[i]));
    add(slice.toNm, groundFt(content.ground[last]));
    upper.insert(upper.end(), lower.rbegin(), lower.rend());
    return upper;
}

ProfileLabels::ProfileLabels(Canvas& canvas, const ProfileContent& content,
                             const MapColorCache& colors, const ProfileAxes& axes)
    : canvas_(canvas),
      content_(content),
      colors_(colors),
      axes_(axes),
      taken_(canvas.area()),
      lines_(canvas.area()),
      linePx_(std::ceil(kLineShare * axes.font().height)) {}

void ProfileLabels::paint() {
    figures();
    if (content_.altitudeFt && content_.route.fromAircraft) {
        const Point at = axes_.at({0, *content_.altitudeFt});
        taken_.reserve(grown({at.x, at.y, 0, 0}, kProfileAircraftRoomPx));
    }
    noteLines();
    notes();
    stops();
    descents();
    for (const AirspaceSlice& slice : content_.airspaces)
        airspace(slice);
}

void ProfileLabels::figures() {
    const ColorValue ink = colors_[ColorKey::HsiNumeral];
    for (const ProfileAxes::Tick& tick : axes_.altitudes())
        write({axes_.plot().x - kProfileAircraftRoomPx, tick.at}, tick.label, ink, AlignX::Right);
    double free = 0;
    for (const ProfileAxes::Tick& tick : axes_.distances()) {
        const double half = widthOf(tick.label) / 2;
        if (tick.at - half < free || tick.at + half > canvas_.width())
            continue;
        write({tick.at, axes_.plot().bottom() + linePx_ * 0.75}, tick.label, ink, AlignX::Center);
        free = tick.at + half + kRimPx;
    }
}

/// What the pilot must know of the picture as a whole, in a corner off what is flown.
void ProfileLabels::notes() {
    const ColorValue ink = colors_[ColorKey::HsiNumeral];
    const Rect& plot = axes_.plot();
    const int lineCount = static_cast<int>((plot.height - 1) / linePx_);
    const auto note = [&](const Text& words) {
        const double width = widthOf(text(words));
        std::vector<Rect> boxes;
        for (const double x : {plot.right() - kRimPx - width, plot.x + kRimPx})
            for (int line = 0; line < lineCount; ++line)
                boxes.push_back({x, plot.y + 1 + line * linePx_, width, linePx_});
        if (const auto box = claimFirst(taken_, boxes, lines_))
            write({boxes[*box].x, boxes[*box].center().y}, text(words), ink, AlignX::Left);
    };
    if (std::ranges::any_of(content_.ground,
                            [](const GroundSample& sample) { return !sample.isKnown; }))
        note(kStatusTexts.terrainMissing);
    if (content_.route.fromAircraft && !content_.altitudeFt)
        note(kGroundTexts.heightUnknown);
    if (content_.route.alongTrack)
        note(kGroundTexts.alongTrack);
}

void ProfileLabels::stops() {
    const ColorValue ink = colors_[ColorKey::MapFlightPlan];
    for (const ProfileStop& stop : content_.route.stops) {
        if (stop.ident.empty() || stop.nm > content_.lengthNm)
            continue;
        const double x = axes_.x(stop.nm);
        const double top = axes_.plot().y + 1;
        const double before = x - kRimPx - widthOf(stop.ident);
        for (const Point corner : {Point{x + kRimPx, top}, Point{before, top},
                                   Point{x + kRimPx, top + linePx_}, Point{before, top + linePx_}})
            if (claim(corner, stop.ident, ink))
                break;
    }
}

void ProfileLabels::descents() {
    for (const ProfilePoint& begin : content_.planned.descents) {
        if (begin.nm > content_.lengthNm)
            continue;
        const bool isNow = content_.route.fromAircraft && begin.nm <= 0;
        const std::string words =
            isNow ? std::string(text(kGroundTexts.descentNow))
                  : formatText(kGroundTexts.descent,
                               {distanceTenthsText(begin.nm, content_.distanceUnit)});
        const Point at = axes_.at(begin);
        const double half = widthOf(words) / 2;
        // Off the aircraft, too, where a descent begins now.
        constexpr double kMarkPx = kProfileAircraftRoomPx;
        const double highest = at.y - kMarkPx - linePx_;
        const ColorValue ink = colors_[ColorKey::MapFlightPlanActive];
        for (const Point corner :
             {Point{at.x - half, highest}, Point{at.x + kMarkPx, highest},
              Point{at.x - half, at.y + kMarkPx}, Point{at.x + kMarkPx, at.y + kMarkPx},
              Point{at.x - kMarkPx - 2 * half, at.y + kMarkPx}})
            if (claim(corner, words, ink))
                break;
    }
}

/// What is flown: names keep off it where they can.
void ProfileLabels::noteLines() {
    const std::vector<ProfilePoint>& line = content_.planned.line;
    for (std::size_t i = 0; i + 1 < line.size(); ++i)
        noteLine({axes_.at(line[i]), axes_.at(line[i + 1])});
    if (const auto path = predictedPath(content_))
        noteLine({axes_.at(path->from), axes_.at(path->to)});
}

void ProfileLabels::noteLine(const Segment& line) {
    constexpr double kApartPx = 6;
    const auto shown = clipSegment(line, axes_.plot());
    if (!shown)
        return;
    const Point step{shown->to.x - shown->from.x, shown->to.y - shown->from.y};
    const int parts =
        std::max(static_cast<int>(std::ceil(std::hypot(step.x, step.y) / kApartPx)), 1);
    for (int part = 0; part <= parts; ++part)
        lines_.reserve(grown(
            {shown->from.x + step.x * part / parts, shown->from.y + step.y * part / parts, 0, 0},
            2));
}

/// As much of class, name and limits as there is room for, off the ground.
void ProfileLabels::airspace(const AirspaceSlice& slice) {
    const Airspace& airspace = slice.airspace;
    const std::string limits = limitWords(airspace);
    const ColorValue ink = colors_[lookOf(airspace, 0).color];
    for (const std::string& words :
         {airspace.airspaceClass + ' ' + airspace.name + "  " + limits,
          airspace.airspaceClass + ' ' + limits, airspace.airspaceClass}) {
        const std::vector<Rect> boxes = boxesIn(slice, widthOf(words));
        if (const auto box = claimFirst(taken_, boxes, lines_))
            return write({boxes[*box].x, boxes[*box].center().y}, words, ink, AlignX::Left);
    }
}

/// Where words of this width fit between the limits and off the ground, the best first.
std::vector<Rect> ProfileLabels::boxesIn(const AirspaceSlice& slice, double width) const {
    const Rect& plot = axes_.plot();
    const double left = axes_.x(slice.fromNm) + kRimPx;
    const double room = std::min(axes_.x(slice.toNm), plot.right()) - kRimPx - width - left;
    const auto [first, last] = pointsOf(content_, slice.fromNm, slice.toNm);
    const auto ground = groundFt(content_.ground[(first + last) / 2]);
    const double upper = std::max(axes_.y(slice.airspace.ceilingFt(ground)), plot.y) + kRimPx;
    const double floor = std::min(axes_.y(slice.airspace.floorFt(ground)), plot.bottom()) - kRimPx;
    std::vector<Rect> boxes;
    constexpr int kPlaces = 6;  // beside each other
    for (int place = 0; place <= kPlaces && room >= 0; ++place) {
        const double x = left + room * place / kPlaces;
        const double lowest = std::min(floor, groundTop(x, x + width)) - linePx_;
        for (const double y : {upper, lowest, (upper + lowest) / 2})
            if (y >= upper && y <= lowest)
                boxes.push_back({x, y, width, linePx_});
    }
    return boxes;
}

bool ProfileLabels::claim(Point topLeft, std::string_view words, ColorValue color) {
    const Rect box{topLeft.x, topLeft.y, widthOf(words), linePx_};
    if (box.right() > axes_.plot().right() + kRimPx || box.bottom() > axes_.plot().bottom() ||
        !taken_.claim(box))
        return false;
    write({box.x, box.center().y}, words, color, AlignX::Left);
    return true;
}

void ProfileLabels::write(Point at, std::string_view words, ColorValue color, AlignX align) {
    canvas_.text(at, words,
                 {.font = axes_.font(),
                  .color = color,
                  .alignX = align,
                  .alignY = AlignY::Middle,
                  .halo = colors_[ColorKey::MapBackground]});
}

double ProfileLabels::widthOf(std::string_view words) const {
    return canvas_.textMeasure().measure(words, axes_.font()).width;
}

/// Where the highest ground between two places stands.
double ProfileLabels::groundTop(double left, double right) const {
    double top = axes_.plot().bottom();
    for (std::size_t i = 0; i < content_.ground.size(); ++i)
        if (const double x = axes_.x(content_.line.nmOf(i));
            x >= left && x <= right && content_.ground[i].highestFt)
            top = std::min(top, axes_.y(*content_.ground[i].highestFt));
    return top;
}

}  // namespace korvel
