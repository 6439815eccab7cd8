#include "map/layers/MeasureLayer.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "config/Text.h"
#include "config/texts/InstrumentTexts.h"
#include "config/texts/StatusTexts.h"
#include "geo/GeoText.h"
#include "geo/Geodesy.h"
#include "map/GreatCircleLine.h"
#include "paint/Clip.h"
#include "paint/TypeSizes.h"

namespace korvel {
namespace {

constexpr double kCloseFloorPx = 44;
constexpr double kRim = 2;
constexpr double kLineWidth = 3;

std::string bearingText(double trueDeg, const std::optional<double>& magneticDeg) {
    const std::string magnetic = magneticDeg ? courseText(*magneticDeg) + "°M" : "---°M";
    return courseText(trueDeg) + "°T  " + magnetic;
}

/// The middle of the part of the line that the view shows.
std::optional<Point> seenMiddle(const MeasureTool& tool, const CockpitData& data,
                                const MapProjection& projection, const Rect& view) {
    const auto from = positionOf(*tool.from(), data);
    const auto to = positionOf(*tool.to(), data);
    if (!from || !to)
        return std::nullopt;
    std::vector<Point> seen;
    traceGreatCircle(projection, *from, *to, view, [&](std::span<const Point> piece) {
        seen.insert(seen.end(), piece.begin(), piece.end());
    });
    if (seen.empty())
        return std::nullopt;
    return Point{(seen.front().x + seen.back().x) / 2, (seen.front().y + seen.back().y) / 2};
}

Rect within(Rect box, const Rect& view) {
    box.x = std::max(view.x, std::min(box.x, view.right() - box.width));
    box.y = std::max(view.y, std::min(box.y, view.bottom() - box.height));
    return box;
}

/// Beside the middle where there is room, else where it covers least of importance.
Rect placeLabel(Point middle, double width, double height, const Rect& view, double gap,
                LabelSpace& labels) {
    const std::array sides{Point{gap, gap},
                           Point{gap, -gap - height},
                           Point{-gap - width, -gap - height},
                           Point{-gap - width, gap},
                           Point{-width / 2, 3 * gap},
                           Point{-width / 2, -3 * gap - height},
                           Point{4 * gap, -height / 2},
                           Point{-4 * gap - width, -height / 2}};
    for (const Point& side : sides) {
        const Rect box = within({middle.x + side.x, middle.y + side.y, width, height}, view);
        if (labels.claim(box))
            return box;
    }
    const Rect box = within({middle.x - width / 2, middle.y + gap, width, height}, view);
    labels.reserve(box);
    return box;
}

class MeasurePainter {
 public:
    MeasurePainter(const MapContent& content, Canvas& canvas)
        : textPx_(content.view.textPx),
          canvas_(canvas),
          ground_(content.colors[ColorKey::MapInfoBackground]),
          ink_(content.colors[ColorKey::MapInfoText]) {}

    void line(const std::vector<std::vector<Point>>& pieces) const {
        for (const Pen& pen : {Pen{ground_, kLineWidth + 2 * kRim, PenStyle::Solid},
                               Pen{ink_, kLineWidth, PenStyle::Dash}})
            for (const std::vector<Point>& piece : pieces)
                canvas_.polyline(piece, pen);
    }

    void end(Point at) const {
        const double radius = std::round(textPx_ * 0.5);
        canvas_.circle(at, radius, std::nullopt, Pen{ground_, 6, PenStyle::Solid});
        canvas_.circle(at, radius, std::nullopt, Pen{ink_, 2.5, PenStyle::Solid});
    }

    void label(const MeasureLook& look) const {
        canvas_.rect(look.label, Brush{ground_}, Pen{ink_, 1, PenStyle::Solid});
        const double step = look.label.height / static_cast<double>(look.lines.size());
        double middle = look.label.y + step / 2;
        for (const std::string& line : look.lines) {
            canvas_.text({look.label.center().x, middle}, line, centered(infoFont(textPx_)));
            middle += step;
        }
    }

    void close(const Rect& box) const {
        canvas_.rect(box, Brush{ground_}, Pen{ink_, 1, PenStyle::Solid});
        const double arm = box.height * 0.16;
        const Point c{box.center().x, box.y + box.height * 0.34};
        canvas_.lines(std::array{Segment{{c.x - arm, c.y - arm}, {c.x + arm, c.y + arm}},
                                 Segment{{c.x - arm, c.y + arm}, {c.x + arm, c.y - arm}}},
                      Pen{ink_, 3, PenStyle::Solid});
        canvas_.text({c.x, box.y + box.height * 0.78}, text(kStatusTexts.measureButton),
                     centered({.height = textPx_, .weight = FontWeight::Bold}));
    }

 private:
    TextStyle centered(const Font& font) const {
        return {.font = font, .color = ink_, .alignX = AlignX::Center, .alignY = AlignY::Middle};
    }

    double textPx_;
    Canvas& canvas_;
    ColorValue ground_;
    ColorValue ink_;
};

}  // namespace

Rect measureCloseBox(double viewWidth, double textPx) {
    const Font font = infoFont(textPx);
    const double margin = boxMargin(font);
    const double size = std::max(kCloseFloorPx, std::round(textPx * 3.4));
    const double width = std::round(size * 1.35);
    const double top = 2 * margin + boxHeight(font);  // the range's box stands above
    return {viewWidth - margin - width, top, width, size};
}

std::vector<std::string> measureLines(const MeasureTool& tool, const MeasureFigures& figures,
                                      DistanceUnit unit) {
    std::vector<std::string> lines;
    const std::string& from = tool.from()->name;
    const std::string& to = tool.to()->name;
    if (!from.empty() || !to.empty())
        lines.push_back(formatText(kInstrumentTexts.fromTo,
                                   {from.empty() ? "…" : from, to.empty() ? "…" : to}));
    lines.push_back(
        distanceText(figures.distanceNm, unit) + "   " +
        formatText(kInstrumentTexts.eteOf, {figures.seconds ? ageText(*figures.seconds) : "---"}));
    lines.push_back(bearingText(figures.trueDeg, figures.magneticDeg));
    lines.push_back(formatText(kInstrumentTexts.backBearing,
                               {bearingText(figures.backTrueDeg, figures.backMagneticDeg)}));
    return lines;
}

std::optional<MeasureLook> layOutMeasure(const TextMeasure& texts, const MeasureTool& tool,
                                         const CockpitData& data, const MapProjection& projection,
                                         const Rect& view, double textPx, LabelSpace& labels) {
    if (!tool.isOn())
        return std::nullopt;
    MeasureLook look;
    look.close = measureCloseBox(view.width, textPx);
    labels.reserve(look.close);
    const auto figures = measure(tool, data);
    const auto middle = figures ? seenMiddle(tool, data, projection, view) : std::nullopt;
    if (!middle)
        return look;
    for (const auto* end : {&tool.from(), &tool.to()}) {
        const Point at = projection.project(*positionOf(**end, data));
        labels.reserve({at.x - textPx, at.y - textPx, 2 * textPx, 2 * textPx});
    }
    look.lines = measureLines(tool, *figures, data.distanceUnit);
    const Font font = infoFont(textPx);
    double width = 0;
    for (const std::string& line : look.lines)
        width = std::max(width, texts.measure(line, font).width);
    const double margin = boxMargin(font);
    look.label = placeLabel(*middle, std::ceil(width) + 2 * margin,
                            std::round(static_cast<double>(look.lines.size()) * font.height * 1.35),
                            view, margin, labels);
    return look;
}

void MeasureLayer::layOut(const TextMeasure& texts, LabelRoom& room) {
    if (content().measure == nullptr)
        return;
    const MeasureTool& tool = *content().measure;
    look_ = layOutMeasure(texts, tool, content().data, view().projection, view().area,
                          view().textPx, room.taken);
    const auto position = [&](const std::optional<MeasureEnd>& end) {
        return end ? positionOf(*end, content().data) : std::nullopt;
    };
    const auto from = position(tool.from());
    const auto to = position(tool.to());
    if (from && to)
        traceGreatCircle(
            view().projection, *from, *to, grown(view().area, kLineWidth),
            [&](std::span<const Point> piece) { line_.emplace_back(piece.begin(), piece.end()); });
    for (const auto& end : {from, to})
        if (end)
            ends_.push_back(view().projection.project(*end));
    std::erase_if(ends_, [&](Point at) { return !view().area.contains(at); });
}

void MeasureLayer::paint(Canvas& canvas) const {
    if (!look_)
        return;
    const MeasurePainter painter(content(), canvas);
    painter.line(line_);
    for (const Point& end : ends_)
        painter.end(end);
    if (!look_->lines.empty())
        painter.label(*look_);
    painter.close(look_->close);
}

}  // namespace korvel
