#include "pages/EfisGuidance.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string>

#include "pages/ApproachBox.h"
#include "pages/NavField.h"
#include "paint/MapColorCache.h"

namespace korvel {
namespace {

constexpr int kDots = 2;              // on each side of the middle
constexpr double kHalfScale = 6.5;    // of the type size, like what follows
constexpr double kScaleWide = 1.4;    // of the ground below it
constexpr double kFromHeading = 2.4;  // the course's scale, above the tape and the bearing's mark
constexpr double kFromTape = 1.2;     // the glide path's, beside the altitudes
constexpr double kGround = 0.6;       // how much of the world it hides

class GuidancePainter {
 public:
    GuidancePainter(Canvas& canvas, const EfisLayout& layout, const MapColorCache& colors)
        : canvas_(canvas), layout_(layout), colors_(colors), textPx_(layout.textPx) {}

    /// `share` of full scale, -1 to 1, towards `axis`.
    void scale(Point middle, Point axis, double share) {
        const double half = kHalfScale * textPx_;
        const double wide = kScaleWide * textPx_;
        const Point reach{std::abs(axis.x) * half + wide / 2, std::abs(axis.y) * half + wide / 2};
        canvas_.rect({middle.x - reach.x, middle.y - reach.y, 2 * reach.x, 2 * reach.y},
                     Brush{colors_[ColorKey::MapBackground], kGround}, std::nullopt);
        const auto at = [&](double part) {
            return Point{middle.x + axis.x * part * half, middle.y + axis.y * part * half};
        };
        const Pen ink{colors_[ColorKey::HsiNumeral], 2};
        for (int dot = -kDots; dot <= kDots; ++dot)
            if (dot != 0)
                canvas_.circle(at(static_cast<double>(dot) / kDots), 0.2 * textPx_, std::nullopt,
                               ink);
        const Point across{axis.y * wide / 2, axis.x * wide / 2};
        canvas_.line({middle.x - across.x, middle.y - across.y},
                     {middle.x + across.x, middle.y + across.y}, ink);
        const Point mark = at(std::clamp(share, -1.0, 1.0));
        const double r = 0.6 * textPx_;
        canvas_.polygon(std::array{Point{mark.x - r, mark.y}, Point{mark.x, mark.y - r},
                                   Point{mark.x + r, mark.y}, Point{mark.x, mark.y + r}},
                        Brush{colors_[ColorKey::HsiNeedle]},
                        Pen{colors_[ColorKey::MapBackground], 1});
    }

    /// In a box at the upper right of the attitude.
    void words(const std::string& text) {
        const Font font{std::round(1.1 * textPx_), FontWeight::Bold};
        const double width = std::ceil(canvas_.textMeasure().measure(text, font).width + textPx_);
        const Rect box{layout_.attitude.right() - width, 0, width, std::round(1.7 * textPx_)};
        canvas_.rect(box, Brush{colors_[ColorKey::MapInfoBackground]}, std::nullopt);
        canvas_.text(box.center(), text,
                     {.font = font,
                      .color = colors_[ColorKey::MapInfoText],
                      .alignX = AlignX::Center,
                      .alignY = AlignY::Middle});
    }

    /// An arrow at the altitude tape; it waits at the end that is nearer.
    void wantedAltitude(double feetAbove, double visibleFt) {
        const Rect& tape = layout_.altitude;
        const double y = std::clamp(layout_.center.y - feetAbove / visibleFt * tape.height, tape.y,
                                    tape.bottom());
        const double size = 0.9 * textPx_;
        canvas_.polygon(std::array{Point{tape.x, y}, Point{tape.x - size, y - 0.6 * size},
                                   Point{tape.x - size, y + 0.6 * size}},
                        Brush{colors_[ColorKey::HsiBearing]},
                        Pen{colors_[ColorKey::MapBackground], 1});
    }

 private:
    Canvas& canvas_;
    const EfisLayout& layout_;
    const MapColorCache& colors_;
    double textPx_;
};

/// "KBFI 3500 ft".
std::string whereTo(const CockpitData& data) {
    const NavFieldText waypoint = navField(NavFieldId::Waypoint).format(data);
    std::string words = waypoint.value;
    if (data.targetAltitudeFt) {
        const NavFieldText altitude = navField(NavFieldId::TargetAltitude).format(data);
        words.append("   ").append(altitude.value).append(" ").append(altitude.unit);
    }
    return words;
}

}  // namespace

void paintEfisGuidance(Canvas& canvas, const CockpitData& data, const EfisLayout& layout,
                       const MapColorCache& colors) {
    if (!data.distanceNm)
        return;
    GuidancePainter painter(canvas, layout, colors);
    painter.words(whereTo(data));
    if (data.crossTrackNm && data.fullScaleNm > 0)
        painter.scale({layout.center.x, layout.heading.y - kFromHeading * layout.textPx}, {1, 0},
                      *data.crossTrackNm / data.fullScaleNm);
    const double glideX = layout.attitude.right() - kFromTape * layout.textPx;
    if (const auto glide = glideDeviation(data))
        painter.scale({glideX, layout.center.y}, {0, -1}, glide->share);
    else if (data.targetAltitudeFt && data.altitudeFt)
        painter.wantedAltitude(*data.targetAltitudeFt - *data.altitudeFt,
                               efisVisibleFt(data.altUnit));
}

}  // namespace korvel
