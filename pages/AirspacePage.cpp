#include "pages/AirspacePage.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <string_view>

#include "config/texts/GroundTexts.h"
#include "geo/GeoText.h"
#include "pages/ToneLook.h"
#include "paint/MapColorCache.h"
#include "paint/TextLine.h"
#include "paint/TypeSizes.h"

namespace korvel {
namespace {

constexpr double kLargeShare = 1.3;
constexpr double kFaded = 0.35;
// Left edges of the columns as shares of the width: how it lies, which, between which heights.
constexpr double kNameColumn = 0.22;
constexpr double kFrequencyColumn = 0.62;

const Text& wordOf(AirspaceRelation relation) {
    switch (relation) {
        case AirspaceRelation::Inside:
            return kGroundTexts.inside;
        case AirspaceRelation::Ahead:
            return kGroundTexts.ahead;
        case AirspaceRelation::Above:
            return kGroundTexts.above;
        default:
            return kGroundTexts.below;
    }
}

/// What the pilot has to do with it now; what asks for nothing is nothing to be told of.
std::optional<AlarmUrgency> urgencyOf(const AirspaceView& airspace) {
    const bool asks = asksForClearance(airspace.kind);
    if (airspace.relation == AirspaceRelation::Inside)
        return asks ? AlarmUrgency::Warning : AlarmUrgency::Notice;
    if (airspace.relation == AirspaceRelation::Ahead && asks)
        return AlarmUrgency::Caution;
    return std::nullopt;
}

class AirspacePainter {
 public:
    AirspacePainter(Canvas& canvas, const CockpitData& data, const MapColorCache& colors)
        : canvas_(canvas),
          data_(data),
          colors_(colors),
          textPx_(mapTextPx(canvas.width(), canvas.height())),
          background_(colors[ColorKey::MapBackground]),
          ink_(colors[ColorKey::HsiNumeral]),
          faint_(blended(ink_, background_, kFaded)) {}

    void paint(const RowListView& view) {
        canvas_.rect({0, 0, canvas_.width(), canvas_.height()}, Brush{background_}, std::nullopt);
        const std::size_t count = data_.airspaces ? data_.airspaces->size() : 0;
        const RowListLayout layout = layOutRowList(canvas_.width(), canvas_.height(), count, view);
        title(layout.title);
        if (count == 0)
            reason();
        for (std::size_t i = 0; i < layout.rows.size(); ++i)
            row((*data_.airspaces)[layout.firstRow + i], layout.rows[i]);
    }

 private:
    Font large() const {
        return {.height = std::round(textPx_ * kLargeShare), .weight = FontWeight::Bold};
    }
    Font small() const { return {.height = std::max(11.0, std::round(textPx_ * 0.95))}; }

    void title(const Rect& area) {
        canvas_.rect(area, Brush{colors_[ColorKey::MapInfoBackground]}, std::nullopt);
        std::string words(text(kGroundTexts.airspaces));
        if (data_.airspaces && !data_.seaAltitudeFt())
            words.append("  ").append(text(kGroundTexts.heightUnknown));
        canvas_.text({area.x + textPx_, area.center().y}, words,
                     {.font = {.height = std::round(textPx_ * 1.1), .weight = FontWeight::Bold},
                      .color = colors_[ColorKey::MapInfoText],
                      .alignY = AlignY::Middle});
    }

    void row(const AirspaceView& airspace, const Rect& area) {
        canvas_.line({area.x, area.bottom()}, {area.right(), area.bottom()},
                     {blended(colors_[ColorKey::HsiLine], background_, 0.6), 1});
        const double upper = area.y + area.height * 0.33;
        const double lower = area.y + area.height * 0.74;
        relation(airspace, upper, lower, area.height);
        const double x = area.width * kNameColumn;
        left(airspace.name, x, upper, large(), ink_);
        left(airspace.airspaceClass, x, lower, small(), faint_);
        left(airspace.frequency, area.width * kFrequencyColumn, lower, small(), ink_);
        right(airspace.limits, area.width - textPx_, lower, large(), ink_);
    }

    /// The word in a frame where the pilot has something to do, so that it does not hang on the
    /// colour.
    void relation(const AirspaceView& airspace, double upper, double lower, double height) {
        const Font font = small();
        const std::string_view word = text(wordOf(airspace.relation));
        const ToneLook look = toneLook(urgencyOf(airspace), colors_);
        const double width = canvas_.textMeasure().measure(word, font).width + textPx_;
        canvas_.rect({0.5 * textPx_, upper - 0.22 * height, width, 0.44 * height},
                     Brush{look.ground}, Pen{look.frame, 2});
        left(word, textPx_, upper, font, look.ink);
        std::string away;
        if (airspace.heightFt)
            away = altitudeText(*airspace.heightFt, data_.altUnit) + "  ";
        if (airspace.seconds && airspace.distanceNm)
            away += formatText(kGroundTexts.inSeconds, {*airspace.seconds}) + "  " +
                    distanceTenthsText(*airspace.distanceNm, data_.distanceUnit);
        left(away, textPx_, lower, font, ink_);
    }

    void reason() {
        const Text& why = data_.airspaces ? kGroundTexts.noAirspaceNear : kGroundTexts.noAirspaces;
        canvas_.text(
            {canvas_.width() / 2, canvas_.height() / 2}, text(why),
            {.font = small(), .color = ink_, .alignX = AlignX::Center, .alignY = AlignY::Middle});
    }

    void left(std::string_view words, double x, double y, const Font& font, ColorValue color) {
        writeFrom(canvas_, {x, y}, words, font, color);
    }
    void right(std::string_view words, double x, double y, const Font& font, ColorValue color) {
        writeUpTo(canvas_, {x, y}, words, font, color);
    }

    Canvas& canvas_;
    const CockpitData& data_;
    const MapColorCache& colors_;
    double textPx_;
    ColorValue background_;
    ColorValue ink_;
    ColorValue faint_;
};

}  // namespace

void paintAirspacePage(Canvas& canvas, const CockpitData& data, const RowListView& view,
                       const MapColorCache& colors) {
    AirspacePainter(canvas, data, colors).paint(view);
}

}  // namespace korvel
