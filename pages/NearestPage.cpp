#include "pages/NearestPage.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string>
#include <string_view>

#include "base/TextNumbers.h"
#include "cockpit/NearAirports.h"
#include "cockpit/RestOfFlight.h"
#include "config/Text.h"
#include "config/texts/AircraftTexts.h"
#include "config/texts/InstrumentTexts.h"
#include "config/texts/StatusTexts.h"
#include "geo/GeoText.h"
#include "geo/Geodesy.h"
#include "pages/NavField.h"
#include "pages/PlanFigures.h"
#include "paint/MapColorCache.h"
#include "paint/TextLine.h"
#include "paint/TypeSizes.h"

namespace korvel {
namespace {

constexpr double kLargeShare = 1.35;
constexpr double kFaded = 0.35;
constexpr double kOld = 0.5;
constexpr double kTitlePx = 48;  // for a thumb
constexpr double kButtonEm = 9;  // of the type size
constexpr double kNarrowPx = 560;
constexpr double kNarrowShare = 0.84;  // of the letters there
constexpr double kWordsFromPx = 640;   // width from which figures have room for a word

// Left edges of the columns as shares of the width: who, where, how far, what.
constexpr double kBearingColumn = 0.33;
constexpr double kDistanceEnd = 0.64;
constexpr double kTimeEnd = 0.79;
constexpr double kRunwayEnd = 1.0;

class NearestPainter {
 public:
    NearestPainter(Canvas& canvas, const CockpitData& data, const MapColorCache& colors)
        : canvas_(canvas),
          data_(data),
          colors_(colors),
          textPx_(mapTextPx(canvas.width(), canvas.height())),
          narrow_(canvas.width() < kNarrowPx ? kNarrowShare : 1),
          background_(colors[ColorKey::MapBackground]),
          ink_(colors[ColorKey::HsiNumeral]) {}

    void paint(const RowListView& view) {
        canvas_.rect({0, 0, canvas_.width(), canvas_.height()}, Brush{background_}, std::nullopt);
        const auto& airports = data_.shownNearAirports();
        const std::size_t count = airports ? airports->size() : 0;
        const NearestLayout layout = layOutNearest(canvas_.width(), canvas_.height(), count, view);
        title(layout, count);
        if (count == 0)
            reason();
        for (std::size_t i = 0; i < layout.list.rows.size(); ++i) {
            const std::size_t index = layout.list.firstRow + i;
            row((*airports)[index], layout.list.rows[i], view.selected == index);
        }
    }

 private:
    Font large() const {
        return {.height = std::round(textPx_ * kLargeShare * narrow_), .weight = FontWeight::Bold};
    }
    Font small() const { return {.height = std::max(11.0, std::round(textPx_ * 0.95 * narrow_))}; }
    double margin() const { return textPx_; }

    /// Which airports, how old the list is when it is, and two buttons.
    void title(const NearestLayout& layout, std::size_t count) {
        const Rect& area = layout.list.title;
        const ColorValue ink = colors_[ColorKey::MapInfoText];
        canvas_.rect(area, Brush{colors_[ColorKey::MapInfoBackground]}, std::nullopt);
        const Font head{.height = std::round(textPx_ * 1.1), .weight = FontWeight::Bold};
        const double room = layout.filter.x - 2 * margin();
        const auto fitted = [&](std::string_view words, double y, const Font& font,
                                ColorValue color) {
            left(fittingText(canvas_.textMeasure(), std::string(words), font, room), margin(), y,
                 font, color);
        };
        fitted(text(kStatusTexts.nearestAirports), area.y + 0.3 * area.height, head, ink);
        std::string which = filterText(data_.nearestFilter, data_.altUnit);
        if (which.empty())
            which = text(kAircraftTexts.allAirports);
        if (count > 0)
            which += "   " + shownOf(layout.list, count);
        const bool isOld = !data_.nearAirports && count > 0 && data_.positionAgeSec;
        if (isOld)
            which = formatText(kAircraftTexts.ageOfList, {ageText(*data_.positionAgeSec)}) + "   " +
                    which;
        fitted(which, area.y + 0.74 * area.height, small(), ink);
        button(layout.filter, text(kAircraftTexts.filterButton), ink);
        button(layout.emergency, text(kAircraftTexts.emergency),
               colors_[ColorKey::MapObstacleDanger]);
    }

    void button(const Rect& area, std::string_view words, ColorValue frame) {
        const Rect inner{area.x + 3, area.y + 3, area.width - 6, area.height - 6};
        canvas_.rect(inner, Brush{background_}, Pen{frame, 2});
        TextStyle style{.font = {.height = textPx_, .weight = FontWeight::Bold},
                        .color = colors_[ColorKey::HsiNumeral],
                        .alignX = AlignX::Center,
                        .alignY = AlignY::Middle};
        const double wide = canvas_.textMeasure().measure(words, style.font).width;
        style.font.height *= std::min(1.0, (inner.width - 8) / std::max(wide, 1.0));
        canvas_.text(inner.center(), words, style);
    }

    /// "7–12 / 20".
    static std::string shownOf(const RowListLayout& layout, std::size_t count) {
        const std::size_t last = std::min(count, layout.firstRow + layout.perPage);
        return formatInt(static_cast<long long>(layout.firstRow) + 1) + "\u2013" +
               formatInt(static_cast<long long>(last)) + " / " +
               formatInt(static_cast<long long>(count));
    }

    void row(const NearAirport& airport, const Rect& area, bool selected) {
        const ColorValue ground = selected ? colors_.chosenGround() : background_;
        ink_ = selected ? colors_.chosenInk() : colors_[ColorKey::HsiNumeral];
        if (!data_.nearAirports)
            ink_ = blended(ink_, ground, kOld);
        faint_ = blended(ink_, ground, kFaded);
        if (selected)
            canvas_.rect(area, Brush{ground}, std::nullopt);
        canvas_.line({area.x, area.bottom()}, {area.right(), area.bottom()},
                     {blended(colors_[ColorKey::HsiLine], background_, 0.6), 1});
        const double upper = area.y + area.height * 0.33;
        const double lower = area.y + area.height * 0.74;
        who(airport, upper, lower);
        bearing(airport, area.width * kBearingColumn, upper);
        right(distanceTenthsText(airport.distanceNm, data_.distanceUnit), area.width * kDistanceEnd,
              upper, large(), ink_);
        right(timeText(airport), area.width * kTimeEnd, upper, large(), ink_);
        glideMark(airport, area.width * kTimeEnd, lower);
        runway(airport, area.width * kRunwayEnd - margin(), upper, lower);
        std::string elevation =
            airport.elevationFt ? altitudeText(*airport.elevationFt, data_.altUnit) : "---";
        if (area.width >= kWordsFromPx)
            elevation = formatText(kInstrumentTexts.elevation, {elevation});
        right(elevation, area.width * kDistanceEnd, lower, small(), faint_);
        left(airport.frequency.empty() ? "---" : airport.frequency, area.width * kBearingColumn,
             lower, small(), ink_);
    }

    std::string timeText(const NearAirport& airport) const {
        if (!data_.nearAirports || data_.groundSpeedKt.value_or(0) < kSlowestToTellTimeKt)
            return std::string(kNoValue);
        return durationText(airport.distanceNm / *data_.groundSpeedKt);
    }

    /// A path that comes down to the line's end, where there is room, and the word.
    void glideMark(const NearAirport& airport, double edge, double y) {
        const auto arrival = glideArrivalFt(data_, airport);
        if (!arrival || *arrival < 0)
            return;
        const std::string_view word = text(kAircraftTexts.glide);
        const double x = edge - canvas_.textMeasure().measure(word, small()).width - 0.5 * textPx_;
        const double size = 0.45 * textPx_;
        if (narrow_ == 1)
            canvas_.polygon(std::array{Point{x - 2 * size, y - size}, Point{x, y + size},
                                       Point{x - 2 * size, y + size}},
                            Brush{ink_}, std::nullopt);
        right(word, edge, y, small(), ink_);
    }

    void who(const NearAirport& airport, double upper, double lower) {
        left(airport.ident, margin(), upper, large(), ink_);
        const double room = canvas_.width() * kBearingColumn - 1.5 * margin();
        left(fittingText(canvas_.textMeasure(), airport.name, small(), room), margin(), lower,
             small(), faint_);
        if (!airport.expired)
            return;
        // A word in a frame, so that it does not hang on the colour.
        const double x =
            margin() + canvas_.textMeasure().measure(airport.ident, large()).width + 0.6 * textPx_;
        const std::string_view word = text(kStatusTexts.expired);
        const Font font = small();
        const double width = canvas_.textMeasure().measure(word, font).width + 0.6 * textPx_;
        canvas_.rect({x, upper - 0.65 * font.height, width, 1.3 * font.height}, Brush{background_},
                     Pen{colors_[ColorKey::MapObstacleDanger], 2});
        left(word, x + 0.3 * textPx_, upper, font, colors_[ColorKey::MapObstacleDanger]);
    }

    // The arrow points to where the airport lies as seen from the seat; without a track it would
    // mean nothing.
    void bearing(const NearAirport& airport, double x, double y) {
        const double size = textPx_ * 0.75;
        if (data_.trackMagDeg)
            arrow({x + size, y}, size, airport.bearingMagDeg - *data_.trackMagDeg);
        left(courseText(airport.bearingMagDeg) + "°", x + 2.6 * size, y, large(), ink_);
    }

    void arrow(Point center, double size, double deg) {
        const double sine = std::sin(deg * kDegToRad) * size;
        const double cosine = std::cos(deg * kDegToRad) * size;
        const auto at = [&](double right, double ahead) {
            return Point{center.x + right * cosine + ahead * sine,
                         center.y + right * sine - ahead * cosine};
        };
        canvas_.polygon(std::array{at(0, 1), at(0.65, -0.75), at(0, -0.4), at(-0.65, -0.75)},
                        Brush{ink_}, std::nullopt);
    }

    void runway(const NearAirport& airport, double edge, double upper, double lower) {
        if (!airport.longestRunwayFt) {
            right("---", edge, upper, large(), ink_);
            return;
        }
        right(altitudeText(*airport.longestRunwayFt, data_.altUnit), edge, upper, large(), ink_);
        right(airport.runway + (airport.surface.empty() ? "" : "  " + airport.surface), edge, lower,
              small(), faint_);
    }

    void reason() {
        std::string why(text(data_.nearestFilter.isOn() ? kAircraftTexts.noneLikeThat
                                                        : kStatusTexts.noAirportNear));
        if (!data_.shownNearAirports())
            why = text(data_.position ? kStatusTexts.nearestNotKnown : kStatusTexts.noGpsSignal);
        TextStyle style{
            .font = large(), .color = ink_, .alignX = AlignX::Center, .alignY = AlignY::Middle};
        const Point center{canvas_.width() / 2, canvas_.height() / 2};
        canvas_.text(center, why, style);
        style.font = small();
        canvas_.text({center.x, center.y + 2 * textPx_}, data_.databaseNotice, style);
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
    double narrow_;
    ColorValue background_;
    ColorValue ink_;
    ColorValue faint_ = 0;
};

}  // namespace

NearestLayout layOutNearest(double width, double height, std::size_t count,
                            const RowListView& view) {
    NearestLayout layout{
        .list = layOutRowList(width, height, count, view, kTitlePx), .filter = {}, .emergency = {}};
    const Rect& title = layout.list.title;
    const double button = std::min(kButtonEm * mapTextPx(width, height), width / 4);
    layout.emergency = {title.right() - button, title.y, button, title.height};
    layout.filter = {layout.emergency.x - button, title.y, button, title.height};
    return layout;
}

void paintNearestPage(Canvas& canvas, const CockpitData& data, const RowListView& view,
                      const MapColorCache& colors) {
    NearestPainter(canvas, data, colors).paint(view);
}

}  // namespace korvel
