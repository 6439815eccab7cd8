#include "map/profile/ProfilePainter.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

#include "config/texts/GroundTexts.h"
#include "config/texts/StatusTexts.h"
#include "geo/GeoText.h"
#include "map/ground/AirspaceLines.h"
#include "map/ground/GroundRaster.h"
#include "map/profile/PredictedPath.h"
#include "map/profile/ProfileAxes.h"
#include "map/profile/ProfileLabels.h"
#include "paint/Clip.h"
#include "paint/MapColorCache.h"
#include "paint/Shapes.h"

namespace korvel {
namespace {

constexpr double kHatchPx = 9;  ///< between two lines
constexpr double kFilm = 0.12;  ///< of an airspace over what is behind it
constexpr double kFaintGrid = 0.82;
constexpr double kSeaPx = 3;

class ProfilePainter {
 public:
    ProfilePainter(Canvas& canvas, const ProfileContent& content, const MapColorCache& colors)
        : canvas_(canvas),
          content_(content),
          colors_(colors),
          axes_(content, canvas.width(), canvas.height(), canvas.textMeasure()),
          plot_(axes_.plot()),
          background_(colors[ColorKey::MapBackground]),
          ink_(colors[ColorKey::HsiNumeral]) {}

    void paint() {
        canvas_.rect(canvas_.area(), Brush{background_}, std::nullopt);
        canvas_.line({0, 0}, {canvas_.width(), 0}, {colors_[ColorKey::HsiLine], 1});
        if (content_.line.points.empty())
            return reason();
        grid();
        for (const AirspaceSlice& slice : content_.airspaces)
            airspace(slice);
        ground();
        unknownGround();
        stops();
        planned();
        predicted();
        aircraft();
        ProfileLabels(canvas_, content_, colors_, axes_).paint();
    }

 private:
    void reason() {
        canvas_.text(canvas_.area().center(), text(kGroundTexts.noProfile),
                     {.font = axes_.font(),
                      .color = ink_,
                      .alignX = AlignX::Center,
                      .alignY = AlignY::Middle});
    }

    void grid() {
        const Pen pen{blended(colors_[ColorKey::HsiLine], background_, kFaintGrid), 1};
        for (const ProfileAxes::Tick& tick : axes_.altitudes())
            canvas_.line({plot_.x, tick.at}, {plot_.right(), tick.at}, pen);
        for (const ProfileAxes::Tick& tick : axes_.distances())
            canvas_.line({tick.at, plot_.bottom()}, {tick.at, plot_.bottom() + 4},
                         {colors_[ColorKey::HsiLine], 1});
    }

    // Airspaces

    void airspace(const AirspaceSlice& slice) {
        const AirspaceLook look = lookOf(slice.airspace, static_cast<int>(content_.lengthNm / 2));
        const std::vector<Point> outline =
            clipPolygon(sliceOutline(content_, axes_, slice), grown(plot_, 2 * look.width));
        if (outline.empty())
            return;
        const ColorValue color = colors_[look.color];
        canvas_.polygon(clipPolygon(outline, plot_), Brush{color, kFilm}, std::nullopt);
        std::vector<Point> closed = outline;
        closed.push_back(outline.front());
        const Pen pen{color, look.width, look.dashed ? PenStyle::Dash : PenStyle::Solid};
        clipPolyline(closed, plot_, [&](auto piece) { canvas_.polyline(piece, pen); });
    }

    // The ground

    /// Calls with the first and the last of each row of samples of which the condition holds.
    void forRuns(const std::function<bool(const GroundSample&)>& holds,
                 const std::function<void(std::size_t, std::size_t)>& take) const {
        const std::vector<GroundSample>& all = content_.ground;
        for (std::size_t i = 0; i < all.size(); ++i) {
            if (!holds(all[i]))
                continue;
            const std::size_t first = i;
            while (i + 1 < all.size() && holds(all[i + 1]))
                ++i;
            take(first, i);
        }
    }
    /// What a sample stands for reaches half way to the next; whole pixels, so that no seam shows
    /// between two bands.
    [[nodiscard]] Rect bandOf(std::size_t first, std::size_t last) const {
        const double half = content_.line.stepNm / 2;
        const double left = std::max(axes_.x(content_.line.nmOf(first) - half), plot_.x);
        const double right = std::min(axes_.x(content_.line.nmOf(last) + half), plot_.right());
        return {std::round(left), plot_.y, std::round(right) - std::round(left), plot_.height};
    }
    /// The ground's upper edge.
    [[nodiscard]] std::vector<Point> ridge(std::size_t first, std::size_t last) const {
        const Rect band = bandOf(first, last);
        std::vector<Point> points{{band.x, axes_.y(heightBetween(first, first - 1))}};
        for (std::size_t i = first; i <= last; ++i)
            points.push_back(axes_.at({content_.line.nmOf(i), *content_.ground[i].highestFt}));
        points.push_back({band.right(), axes_.y(heightBetween(last, last + 1))});
        return points;
    }
    /// Half way to a neighbour, which may be none or unknown.
    [[nodiscard]] double heightBetween(std::size_t sample, std::size_t neighbour) const {
        const double here = *content_.ground[sample].highestFt;
        return neighbour < content_.ground.size()
                   ? (here + content_.ground[neighbour].highestFt.value_or(here)) / 2
                   : here;
    }

    enum class Nearness : std::uint8_t { Unknown, Far, Warning, Danger };
    [[nodiscard]] Nearness nearnessOf(const GroundSample& sample) const {
        if (!sample.highestFt)
            return Nearness::Unknown;
        if (!content_.altitudeFt || *sample.highestFt <= *content_.altitudeFt - kWarningBelowFt)
            return Nearness::Far;
        return *sample.highestFt > *content_.altitudeFt - kDangerBelowFt ? Nearness::Danger
                                                                         : Nearness::Warning;
    }

    void fill(Nearness nearness, ColorValue color) {
        forRuns([&](const GroundSample& sample) { return nearnessOf(sample) == nearness; },
                [&](std::size_t first, std::size_t last) {
                    std::vector<Point> points = ridge(first, last);
                    // What lies below the lowest point is a rectangle, which costs next to nothing.
                    const double lowest =
                        std::floor(std::ranges::max_element(points, {}, &Point::y)->y);
                    const Rect band = bandOf(first, last);
                    points.push_back({band.right(), lowest});
                    points.push_back({band.x, lowest});
                    canvas_.polygon(points, Brush{color}, std::nullopt);
                    canvas_.rect({band.x, lowest, band.width, plot_.bottom() - lowest},
                                 Brush{color}, std::nullopt);
                });
    }

    void ground() {
        const ColorValue edge = colors_[ColorKey::GeoLandMax];
        fill(Nearness::Far, blended(colors_[ColorKey::GeoLand], edge, 0.5));
        fill(Nearness::Warning, colors_[ColorKey::GeoWarning]);
        fill(Nearness::Danger, colors_[ColorKey::GeoDanger]);
        forRuns([](const GroundSample& sample) { return sample.highestFt && !sample.isSea; },
                [&](std::size_t first, std::size_t last) {
                    canvas_.polyline(ridge(first, last), {blended(edge, ink_, 0.4), 1.5});
                });
        forRuns([](const GroundSample& sample) { return sample.isSea; },
                [&](std::size_t first, std::size_t last) {
                    Rect band = bandOf(first, last);
                    band.y = std::min(axes_.y(0), plot_.bottom() - kSeaPx);
                    band.height = plot_.bottom() - band.y;
                    canvas_.rect(band, Brush{colors_[ColorKey::GeoWater]}, std::nullopt);
                });
    }

    void unknownGround() {
        const Pen pen{blended(colors_[ColorKey::HsiLine], background_, 0.45), 1};
        forRuns([](const GroundSample& sample) { return !sample.isKnown; },
                [&](std::size_t first, std::size_t last) {
                    const Rect band = bandOf(first, last);
                    std::vector<Segment> hatch;
                    // All bands have the lines of one pattern.
                    const int from =
                        static_cast<int>(std::floor((band.x - band.height) / kHatchPx));
                    for (int i = from; i * kHatchPx < band.right(); ++i) {
                        const double x = i * kHatchPx;
                        if (const auto line =
                                clipSegment({{x, band.bottom()}, {x + band.height, band.y}}, band))
                            hatch.push_back(*line);
                    }
                    canvas_.lines(hatch, pen);
                });
    }

    // The flight

    void stops() {
        const Pen pen{blended(colors_[ColorKey::MapFlightPlan], background_, 0.3), 1};
        for (const ProfileStop& stop : content_.route.stops)
            if (!stop.ident.empty() && stop.nm <= content_.lengthNm)
                canvas_.line({axes_.x(stop.nm), plot_.y}, {axes_.x(stop.nm), plot_.bottom()}, pen);
    }

    void planned() {
        std::vector<Point> line;
        for (const ProfilePoint& point : content_.planned.line)
            line.push_back(axes_.at(point));
        clipPolyline(line, plot_, [&](auto piece) {
            canvas_.polyline(piece, {background_, 5});
            canvas_.polyline(piece, {colors_[ColorKey::MapFlightPlanActive], 3});
        });
        for (const ProfilePoint& begin : content_.planned.descents)
            if (begin.nm <= content_.lengthNm)
                descentMark(axes_.at(begin));
    }
    void descentMark(Point at) {
        constexpr double kPx = 6;
        const std::vector<Point> mark{
            {at.x - kPx, at.y - kPx}, {at.x + kPx, at.y - kPx}, {at.x, at.y + 0.6 * kPx}};
        canvas_.polygon(mark, Brush{colors_[ColorKey::MapFlightPlanActive]}, Pen{background_, 1.5});
    }

    void predicted() {
        const auto path = predictedPath(content_);
        if (!path)
            return;
        if (const auto shown = clipSegment({axes_.at(path->from), axes_.at(path->to)}, plot_))
            canvas_.line(shown->from, shown->to,
                         {colors_[ColorKey::HsiTrack], 2.5, PenStyle::Dash});
        if (path->meetsGround)
            cross(axes_.at(path->to));
    }
    void cross(Point at) {
        constexpr double kPx = 6;
        for (const ColorValue color : {background_, colors_[ColorKey::GeoDanger]}) {
            const Pen pen{color, color == background_ ? 6.0 : 3.0};
            canvas_.line({at.x - kPx, at.y - kPx}, {at.x + kPx, at.y + kPx}, pen);
            canvas_.line({at.x - kPx, at.y + kPx}, {at.x + kPx, at.y - kPx}, pen);
        }
    }

    void aircraft() {
        if (!content_.route.fromAircraft || !content_.altitudeFt)
            return;
        const Point at = axes_.at({0, *content_.altitudeFt});
        canvas_.line({at.x, at.y}, {plot_.right(), at.y},
                     {blended(colors_[ColorKey::HsiAirplane], background_, 0.6), 1});
        const std::vector<Point> outline = aircraftOutline(at, kProfileAircraftPx, 90);
        canvas_.polygon(outline, std::nullopt, Pen{background_, 4});
        canvas_.polygon(outline, Brush{colors_[ColorKey::HsiAirplane]}, std::nullopt);
    }

    Canvas& canvas_;
    const ProfileContent& content_;
    const MapColorCache& colors_;
    ProfileAxes axes_;
    Rect plot_;
    ColorValue background_;
    ColorValue ink_;
};

}  // namespace

void paintProfile(Canvas& canvas, const ProfileContent& content, const MapColorCache& colors) {
    ProfilePainter(canvas, content, colors).paint();
}

}  // namespace korvel
