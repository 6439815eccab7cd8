#include "pages/AirportPicture.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "base/TextNumbers.h"
#include "cockpit/PlaceDetails.h"
#include "config/Text.h"
#include "config/texts/StatusTexts.h"
#include "geo/GeoText.h"
#include "geo/Units.h"
#include "navdb/records/AirportRecord.h"
#include "pages/AirportLayout.h"
#include "paint/LabelSpace.h"
#include "paint/MapColorCache.h"
#include "paint/Shapes.h"
#include "paint/TextBox.h"

namespace korvel {
namespace {

class PicturePainter {
 public:
    PicturePainter(Canvas& canvas, const Rect& area, const AirportRecord& airport, int altUnit,
                   const MapColorCache& colors)
        : canvas_(canvas),
          area_(area),
          airport_(airport),
          altUnit_(altUnit),
          colors_(colors),
          textPx_(std::clamp(std::round(std::min(area.width, area.height) / 22), 12.0, 22.0)),
          background_(colors[ColorKey::MapBackground]),
          ink_(colors[ColorKey::MapRunway]),
          labels_(area),
          layout_(layOutAirport(airport, area, textPx_)) {}

    void paint() {
        canvas_.rect(area_, Brush{background_}, std::nullopt);
        if (layout_.runways.empty()) {
            canvas_.text(area_.center(), text(kStatusTexts.noRunwayKnown),
                         style(textPx_ * 1.2, FontWeight::Bold, ink_));
            return;
        }
        northArrow();
        scaleBar();
        for (const RunwayShape& shape : layout_.runways)
            surface(shape);
        for (const RunwayShape& shape : layout_.runways) {
            end(shape, 0);
            end(shape, 1);
        }
        for (const RunwayShape& shape : layout_.runways)
            length(shape);
    }

 private:
    TextStyle style(double height, FontWeight weight, ColorValue color) const {
        return {.font = {.height = std::round(height), .weight = weight},
                .color = color,
                .alignX = AlignX::Center,
                .alignY = AlignY::Middle,
                .halo = background_};
    }
    const RunwayRecord& recordOf(const RunwayShape& shape) const {
        return airport_.runways[shape.runway];
    }

    void northArrow() {
        const double size = textPx_;
        const Point top{area_.x + 1.5 * size, area_.y + 0.6 * size};
        canvas_.polygon(std::array{top, Point{top.x + 0.6 * size, top.y + 1.7 * size},
                                   Point{top.x, top.y + 1.3 * size},
                                   Point{top.x - 0.6 * size, top.y + 1.7 * size}},
                        Brush{ink_}, std::nullopt);
        canvas_.text({top.x, top.y + 2.4 * size}, "N", style(size, FontWeight::Bold, ink_));
        labels_.reserve({area_.x, area_.y, 3 * size, 3.6 * size});
    }

    // 500, 1000, 2000 … feet or 250, 500 … metres, about a quarter of the width.
    void scaleBar() {
        if (layout_.pixelsPerFt <= 0)
            return;
        const double perFoot = altUnit_ == 1 ? kMetresPerFoot : 1;
        const double pixelsPerUnit = layout_.pixelsPerFt / perFoot;
        double length = altUnit_ == 1 ? 250 : 500;
        while (length * 2 * pixelsPerUnit < area_.width / 4)
            length *= 2;
        const double left = area_.x + textPx_;
        const double y = area_.bottom() - 0.7 * textPx_;
        const double right = left + length * pixelsPerUnit;
        const double tick = 0.3 * textPx_;
        canvas_.lines(
            std::array{Segment{{left, y}, {right, y}}, Segment{{left, y - tick}, {left, y + tick}},
                       Segment{{right, y - tick}, {right, y + tick}}},
            {ink_, 1.5, PenStyle::Solid});
        TextStyle words = style(std::max(11.0, textPx_ * 0.85), FontWeight::Regular, ink_);
        words.alignX = AlignX::Left;
        canvas_.text({left, y - textPx_},
                     formatInt(std::lround(length)) + (altUnit_ == 1 ? " m" : " ft"), words);
        labels_.reserve({area_.x, y - 1.6 * textPx_, right - area_.x + textPx_, 2.3 * textPx_});
    }

    void surface(const RunwayShape& shape) {
        const RunwayRecord& runway = recordOf(shape);
        const std::vector<Point> corners = runwayCorners(shape.from, shape.to, shape.widthPx);
        if (corners.empty())
            return;
        if (isHardSurface(runway.surface))
            canvas_.polygon(corners, Brush{ink_}, std::nullopt);
        else
            canvas_.polygon(corners, Brush{blended(ink_, background_, 0.8)}, Pen{ink_, 1});
        const Point step{(shape.to.x - shape.from.x) / kSteps,
                         (shape.to.y - shape.from.y) / kSteps};
        for (int i = 0; i <= kSteps; ++i) {
            const double half = shape.widthPx / 2 + 1;
            labels_.reserve({shape.from.x + step.x * i - half, shape.from.y + step.y * i - half,
                             2 * half, 2 * half});
        }
    }

    // The number beyond the end, and the way from base to final on the side of the pattern.
    void end(const RunwayShape& shape, std::size_t which) {
        const RunwayRecord& runway = recordOf(shape);
        if (which >= runway.ends.size())
            return;
        const RunwayEnd& end = runway.ends[which];
        const Point at = which == 0 ? shape.from : shape.to;
        const Point other = which == 0 ? shape.to : shape.from;
        const double length = std::hypot(at.x - other.x, at.y - other.y);
        if (!(length > 0))
            return;
        const Point landing{(other.x - at.x) / length, (other.y - at.y) / length};
        if (end.pattern != 0)
            pattern(at, landing, end.pattern);
        const TextStyle number =
            style(textPx_ * 1.1, FontWeight::Bold, colors_[ColorKey::MapRunwayHeading]);
        const TextExtent extent = canvas_.textMeasure().measure(end.id, number.font);
        for (const double away : {end.pattern == 0 ? 1.0 : 1.7, 2.4, 0.4})
            for (const double aside : {0.0, 1.3, -1.3}) {
                const Point place{at.x - (landing.x * away + landing.y * aside) * textPx_,
                                  at.y - (landing.y * away - landing.x * aside) * textPx_};
                if (!labels_.claim(textBox(place, extent, number)))
                    continue;
                canvas_.text(place, end.id, number);
                return;
            }
    }

    void pattern(Point at, Point landing, char side) {
        const double left = side == 'L' ? 1.0 : -1.0;
        const Point aside{landing.y * left, -landing.x * left};
        const auto place = [&](double before, double beside) {
            return Point{at.x + (aside.x * beside - landing.x * before) * textPx_,
                         at.y + (aside.y * beside - landing.y * before) * textPx_};
        };
        const Pen pen{colors_[ColorKey::HsiBearing], 2, PenStyle::Solid};
        canvas_.lines(std::array{Segment{place(0.8, 1.8), place(0.8, 0)},
                                 Segment{place(0.8, 0), place(0.15, 0)},
                                 Segment{place(0.15, 0), place(0.5, 0.3)},
                                 Segment{place(0.15, 0), place(0.5, -0.3)}},
                      pen);
    }

    // Beside the runway, near its middle if there is room.
    void length(const RunwayShape& shape) {
        const RunwayRecord& runway = recordOf(shape);
        if (!runway.lengthFt)
            return;
        const std::string words = altitudeText(*runway.lengthFt, altUnit_);
        const TextStyle label = style(std::max(11.0, textPx_ * 0.85), FontWeight::Regular, ink_);
        const TextExtent extent = canvas_.textMeasure().measure(words, label.font);
        const double x = shape.to.x - shape.from.x;
        const double y = shape.to.y - shape.from.y;
        const double length = std::hypot(x, y);
        if (!(length > 0))
            return;
        const Point across{-y / length, x / length};
        // Far enough that the text's box clears the runway at any angle.
        const double away = shape.widthPx / 2 + 4 + std::abs(across.x) * extent.width / 2 +
                            std::abs(across.y) * extent.capHeight;
        for (const double along : {0.5, 0.35, 0.65, 0.2, 0.8})
            for (const double side : {1.0, -1.0}) {
                const Point place{shape.from.x + x * along + across.x * away * side,
                                  shape.from.y + y * along + across.y * away * side};
                if (!labels_.claim(textBox(place, extent, label)))
                    continue;
                canvas_.text(place, words, label);
                return;
            }
    }

    static constexpr int kSteps = 40;

    Canvas& canvas_;
    Rect area_;
    const AirportRecord& airport_;
    int altUnit_;
    const MapColorCache& colors_;
    double textPx_;
    ColorValue background_;
    ColorValue ink_;
    LabelSpace labels_;
    AirportPictureLayout layout_;
};

}  // namespace

void paintAirportPicture(Canvas& canvas, const Rect& area, const AirportRecord& airport,
                         int altUnit, const MapColorCache& colors) {
    PicturePainter(canvas, area, airport, altUnit, colors).paint();
}

}  // namespace korvel
