#include "map/layers/PlanBandLayer.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "cockpit/CockpitData.h"
#include "config/texts/InstrumentTexts.h"
#include "geo/GeoText.h"
#include "map/GreatCircleLine.h"
#include "map/layers/AircraftLayer.h"
#include "paint/Clip.h"
#include "paint/TypeSizes.h"

namespace korvel {
namespace {

constexpr double kWidth = 4;
constexpr double kRim = 2.5;
constexpr double kFromFinger = 56;  // pixels: a thumb covers less

std::string signedText(double nm, DistanceUnit unit) {
    return (nm < 0 ? "" : "+") + distanceTenthsText(nm, unit);
}

/// Above the finger where it can, else below or beside it, and clear of the aircraft.
Rect placeBox(double width, double height, Point finger, const Rect& view, const Rect& aircraft) {
    const double up = -kFromFinger - height;
    const double middle = -width / 2;
    const double left = -kFromFinger - width;
    const std::array sides{Point{middle, up},        Point{middle, kFromFinger},
                           Point{left, up},          Point{kFromFinger, up},
                           Point{left, -height / 2}, Point{kFromFinger, -height / 2},
                           Point{left, kFromFinger}, Point{kFromFinger, kFromFinger}};
    const double lastX = std::max(view.x, view.right() - width);
    for (const Point& side : sides) {
        const double x = finger.x + side.x;
        const Rect box{side.x == middle ? std::clamp(x, view.x, lastX) : x, finger.y + side.y,
                       width, height};
        const bool isSeen = box.x >= view.x && box.right() <= view.right() && box.y >= view.y &&
                            box.bottom() <= view.bottom();
        if (isSeen && !overlap(box, aircraft))
            return box;
    }
    return {lastX, view.y, width, height};
}

}  // namespace

std::vector<std::string> bandLines(const PlanBand& band, DistanceUnit unit) {
    const BandFigures figures = figuresOf(band);
    std::vector lines{band.name.empty() ? coordinatesText(band.at) : band.name};
    std::string legs;
    for (const auto& leg : {figures.toNm, figures.fromNm})
        if (leg)
            legs += (legs.empty() ? "" : " + ") + distanceTenthsText(*leg, unit);
    if (!legs.empty())
        lines.push_back(std::move(legs));
    const std::string total =
        formatText(kInstrumentTexts.totalDistance, {distanceTenthsText(figures.totalNm, unit)});
    lines.push_back(signedText(figures.extraNm, unit) + "   " + total);
    return lines;
}

void PlanBandLayer::layOut(const TextMeasure& texts, LabelRoom& room) {
    if (content().band == nullptr)
        return;
    const PlanBand& band = *content().band;
    const auto trace = [&](const std::optional<GeoPoint>& from, const std::optional<GeoPoint>& to) {
        if (from && to)
            traceGreatCircle(view().projection, *from, *to, grown(view().area, kWidth),
                             [&](std::span<const Point> piece) {
                                 legs_.emplace_back(piece.begin(), piece.end());
                             });
    };
    trace(band.before, band.at);
    trace(band.at, band.behind);
    end_ = view().projection.project(band.at);
    lines_ = bandLines(band, content().data.distanceUnit);
    const Font font = infoFont(view().textPx);
    double width = 0;
    for (const std::string& line : lines_)
        width = std::max(width, texts.measure(line, font).width);
    box_ = placeBox(std::ceil(width) + 2 * boxMargin(font),
                    lineHeight(font) * static_cast<double>(lines_.size()) + boxMargin(font), end_,
                    view().area, aircraftArea(content().aircraft(), view().textPx));
    room.taken.reserve(box_);
}

void PlanBandLayer::paint(Canvas& canvas) const {
    if (lines_.empty())
        return;
    const ColorValue ground = color(ColorKey::MapBackground);
    const ColorValue ink = color(ColorKey::MapFlightPlanActive);
    for (const Pen& pen :
         {Pen{ground, kWidth + 2 * kRim, PenStyle::Solid}, Pen{ink, kWidth, PenStyle::Dash}})
        for (const std::vector<Point>& leg : legs_)
            canvas.polyline(leg, pen);
    const double radius = std::round(view().textPx * 1.2);
    canvas.circle(end_, radius, std::nullopt, Pen{ground, kWidth + 2 * kRim, PenStyle::Solid});
    canvas.circle(end_, radius, std::nullopt, Pen{ink, kWidth, PenStyle::Solid});
    paintBox(canvas);
}

void PlanBandLayer::paintBox(Canvas& canvas) const {
    const ColorValue ink = color(ColorKey::MapInfoText);
    canvas.rect(box_, Brush{color(ColorKey::MapInfoBackground)}, Pen{ink, 1, PenStyle::Solid});
    const Font font = infoFont(view().textPx);
    double middle = box_.y + (boxMargin(font) + lineHeight(font)) / 2;
    for (const std::string& line : lines_) {
        canvas.text(
            {box_.center().x, middle}, line,
            {.font = font, .color = ink, .alignX = AlignX::Center, .alignY = AlignY::Middle});
        middle += lineHeight(font);
    }
}

}  // namespace korvel
