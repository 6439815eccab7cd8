#include "pages/ApproachBox.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string>

#include "config/Text.h"
#include "config/texts/StatusTexts.h"
#include "geo/GeoText.h"
#include "geo/Geodesy.h"
#include "geo/Units.h"
#include "paint/MapColorCache.h"
#include "paint/TypeSizes.h"

namespace korvel {
namespace {

constexpr double kFullScaleDeg = 0.7;
constexpr int kOnPathFt = 20;
constexpr int kRoundedToFt = 10;
constexpr double kWidthInHeights = 5.6;
constexpr double kHeightInHeights = 13;
/// What stands in a page's corners takes so much of its height above and below the box.
constexpr double kCornersInHeights = 4.2;

// The parts of the box, from top to bottom, in heights of type.
constexpr double kTitleAt = 1;
constexpr double kRunwayAt = 2.6;
constexpr double kScaleFrom = 4.2;
constexpr double kScaleTo = 10;
constexpr double kWordAt = 10.9;
constexpr double kFeetAt = 12.2;

class BoxPainter {
 public:
    BoxPainter(Canvas& canvas, const Rect& area, const MapColorCache& colors)
        : canvas_(canvas),
          area_(area),
          textPx_(area.height / kHeightInHeights),
          ground_(colors[ColorKey::MapInfoBackground]),
          ink_(colors[ColorKey::MapInfoText]) {}

    void title(const LandingRunway& runway) {
        canvas_.rect(area_, Brush{ground_}, std::nullopt);
        line(kTitleAt, text(kStatusTexts.approachShort), 1);
        line(kRunwayAt, runway.id, 1.7);
    }

    /// The aircraft stays in the middle, the path moves.
    void scale(const std::optional<GlideDeviation>& deviation) {
        const double x = area_.center().x;
        const double half = textPx_ * (kScaleTo - kScaleFrom) / 2;
        const double middle = area_.y + textPx_ * (kScaleFrom + kScaleTo) / 2;
        for (const double mark : {-1.0, -0.5, 0.5, 1.0})
            canvas_.circle({x, middle - mark * half}, textPx_ * 0.22, std::nullopt, pen(1.5));
        const double wing = textPx_ * 1.5;
        canvas_.line({x - wing, middle}, {x + wing, middle}, pen(2));
        if (!deviation)
            return;
        const double y = middle - deviation->share * half;
        const double size = textPx_ * 0.62;
        canvas_.polygon(std::array{Point{x, y - size}, Point{x + size, y}, Point{x, y + size},
                                   Point{x - size, y}},
                        Brush{ink_}, Pen{ground_, 1.5, PenStyle::Solid});
    }

    void words(const std::optional<GlideDeviation>& deviation, int altUnit) {
        if (!deviation) {
            line(kWordAt, text(kStatusTexts.glideUnknown), 1);
            return;
        }
        const int feet = std::abs(deviation->aboveFt);
        if (feet <= kOnPathFt) {
            line(kWordAt, text(kStatusTexts.glideOnPath), 1);
            return;
        }
        line(kWordAt, text(deviation->aboveFt > 0 ? kStatusTexts.glideHigh : kStatusTexts.glideLow),
             1);
        const int rounded = RoundToInt(static_cast<double>(feet) / kRoundedToFt) * kRoundedToFt;
        line(kFeetAt, altitudeText(rounded, altUnit), 1);
    }

 private:
    Pen pen(double width) const { return {ink_, width, PenStyle::Solid}; }

    void line(double at, std::string_view words, double share) {
        TextStyle style{.font = {.height = std::round(textPx_ * share), .weight = FontWeight::Bold},
                        .color = ink_,
                        .alignX = AlignX::Center,
                        .alignY = AlignY::Middle};
        const double width = canvas_.textMeasure().measure(words, style.font).width;
        style.font.height *= std::min(1.0, (area_.width - textPx_ / 2) / std::max(width, 1.0));
        canvas_.text({area_.center().x, area_.y + at * textPx_}, words, style);
    }

    Canvas& canvas_;
    Rect area_;
    double textPx_;
    ColorValue ground_;
    ColorValue ink_;
};

}  // namespace

std::optional<GlideDeviation> glideDeviation(const CockpitData& data) {
    if (!data.approach || !data.targetAltitudeFt || !data.altitudeFt)
        return std::nullopt;
    const int above = *data.altitudeFt - *data.targetAltitudeFt;
    const double fullScale = std::max(kLeastFullScaleFt, std::tan(kFullScaleDeg * kDegToRad) *
                                                             data.approach->toGoNm * kFeetPerNm);
    return GlideDeviation{.aboveFt = above, .share = std::clamp(-above / fullScale, -1.0, 1.0)};
}

Rect approachBox(double width, double height) {
    const double textPx = mapTextPx(width, height);
    const double clear = kCornersInHeights * instrumentTextPx(width, height);
    const double high =
        std::min(kHeightInHeights * textPx, std::max(height - 2 * clear, height / 3));
    const double wide = std::min(kWidthInHeights * textPx, width);
    return {0, std::round((height - high) / 2), std::round(wide), std::round(high)};
}

void paintApproachBox(Canvas& canvas, const Rect& area, const CockpitData& data,
                      const MapColorCache& colors) {
    if (!data.approach)
        return;
    const std::optional<GlideDeviation> deviation = glideDeviation(data);
    BoxPainter painter(canvas, area, colors);
    painter.title(data.approach->runway);
    painter.scale(deviation);
    painter.words(deviation, data.altUnit);
}

}  // namespace korvel
