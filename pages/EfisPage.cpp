#include "pages/EfisPage.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/TextNumbers.h"
#include "config/Text.h"
#include "config/texts/InstrumentTexts.h"
#include "config/texts/StatusTexts.h"
#include "config/texts/TrafficTexts.h"
#include "geo/GeoText.h"
#include "geo/Geodesy.h"
#include "geo/Units.h"
#include "pages/EfisGuidance.h"
#include "pages/EfisTape.h"
#include "pages/WarningFlag.h"
#include "paint/Clip.h"
#include "paint/MapColorCache.h"
#include "paint/TypeSizes.h"

namespace korvel {
namespace {

constexpr double kFullScaleFpm = 2000;
constexpr double kVisibleHeadingDeg = 80;
constexpr double kVisibleFeet = 900;
constexpr double kVisibleMetres = 300;
constexpr int kMostLadderDeg = 30;

class EfisPainter {
 public:
    EfisPainter(Canvas& canvas, const CockpitData& data, const MapColorCache& colors)
        : canvas_(canvas),
          data_(data),
          colors_(colors),
          layout_(layOutEfis(canvas.width(), canvas.height())),
          textPx_(layout_.textPx),
          ink_(colors[ColorKey::HsiNumeral]) {}

    void paint() {
        const Rect page{0, 0, canvas_.width(), canvas_.height()};
        if (data_.bankDeg && data_.pitchDeg) {
            world(page, *data_.bankDeg, *data_.pitchDeg);
            ladder(*data_.bankDeg, *data_.pitchDeg);
            bankScale(*data_.bankDeg);
            nose();
        } else {
            canvas_.rect(page, Brush{colors_[ColorKey::MapBackground]}, std::nullopt);
            paintWarningCross(canvas_, layout_.attitude, colors_);
            paintWarningFlag(canvas_, layout_.center, text(kInstrumentTexts.noAttitude),
                             1.6 * textPx_, colors_);
        }
        speedTape();
        altitudeTape();
        verticalSpeed();
        headingTape();
        paintEfisGuidance(canvas_, data_, layout_, colors_);
        origin();
        if (!data_.position && data_.positionAgeSec)
            paintWarningFlag(
                canvas_, {layout_.center.x, layout_.attitude.bottom() - 2.5 * textPx_},
                formatText(kStatusTexts.positionLost, {ageText(*data_.positionAgeSec)}),
                1.6 * textPx_, colors_);
    }

 private:
    Pen inkPen(double width) const { return {ink_, width, PenStyle::Solid}; }
    TextStyle style(double share, ColorValue color) const {
        return {.font = {.height = std::round(textPx_ * share), .weight = FontWeight::Bold},
                .color = color,
                .alignX = AlignX::Center,
                .alignY = AlignY::Middle};
    }
    Point at(double right, double up) const {
        return worldPoint(layout_, *data_.bankDeg, *data_.pitchDeg, right, up);
    }

    // Earth is the terrain's own colour, darkened towards its peaks: never bright at night.
    void world(const Rect& page, double bank, double pitch) {
        canvas_.rect(page, Brush{colors_[ColorKey::GeoWater]}, std::nullopt);
        const double far = 4 * (page.width + page.height);
        const std::array earth{worldPoint(layout_, bank, pitch, -far, 0),
                               worldPoint(layout_, bank, pitch, far, 0),
                               worldPoint(layout_, bank, pitch, far, -far),
                               worldPoint(layout_, bank, pitch, -far, -far)};
        const ColorValue ground =
            blended(colors_[ColorKey::GeoLandMax], colors_[ColorKey::GeoLand], 0.5);
        const std::vector<Point> seen = clipPolygon(earth, grown(page, 8));
        if (!seen.empty())
            canvas_.polygon(seen, Brush{ground}, std::nullopt);
        if (const auto horizon = clipSegment({earth[0], earth[1]}, page))
            canvas_.line(horizon->from, horizon->to, inkPen(std::max(3.0, textPx_ / 6)));
    }

    void ladder(double bank, double pitch) {
        const Rect room = grown(layout_.attitude, -textPx_);
        std::vector<Segment> rungs;
        for (int degrees = -kMostLadderDeg; degrees <= kMostLadderDeg; degrees += 5) {
            const double up = degrees * layout_.pixelsPerDeg;
            const double out = std::abs(up - pitch * layout_.pixelsPerDeg);
            if (degrees == 0 || out > layout_.bankRadius - 1.6 * textPx_)
                continue;
            const double half = textPx_ * (degrees % 10 == 0 ? 3.2 : 1.6);
            const Segment rung{worldPoint(layout_, bank, pitch, -half, up),
                               worldPoint(layout_, bank, pitch, half, up)};
            if (!room.contains(rung.from) || !room.contains(rung.to))
                continue;
            rungs.push_back(rung);
            if (degrees % 10 != 0)
                continue;
            const std::string text = formatInt(std::abs(degrees));
            for (const double side : {-1.0, 1.0})
                canvas_.text(at(side * (half + 1.1 * textPx_), up), text, style(1, ink_));
        }
        canvas_.lines(rungs, inkPen(2));
    }

    Point onArc(double angleDeg, double radius) const {
        return {layout_.center.x + radius * std::sin(angleDeg * kDegToRad),
                layout_.center.y - radius * std::cos(angleDeg * kDegToRad)};
    }

    // The scale is the aircraft's; the pointer at it points to the sky.
    void bankScale(double bank) {
        const double radius = layout_.bankRadius;
        std::vector<Segment> ticks;
        for (const int angle : {-60, -45, -30, -20, -10, 10, 20, 30, 45, 60}) {
            const double length = textPx_ * (angle % 30 == 0 ? 0.9 : 0.5);
            ticks.push_back({onArc(angle, radius), onArc(angle, radius + length)});
        }
        canvas_.lines(ticks, inkPen(2));
        const double size = 0.8 * textPx_;
        canvas_.polygon(
            std::array{onArc(0, radius), onArc(-3, radius + size), onArc(3, radius + size)},
            Brush{ink_}, std::nullopt);
        const Point tip = onArc(-bank, radius - 2);
        const Point base = onArc(-bank, radius - 2 - 1.1 * size);
        const double dx = (tip.y - base.y) * 0.6;
        const double dy = (base.x - tip.x) * 0.6;
        canvas_.polygon(
            std::array{tip, Point{base.x + dx, base.y + dy}, Point{base.x - dx, base.y - dy}},
            Brush{colors_[ColorKey::HsiAirplane]},
            Pen{colors_[ColorKey::MapBackground], 1, PenStyle::Solid});
    }

    // The aircraft from behind: wings and a dot, with a rim that stands out from earth and sky.
    void nose() {
        const Point c = layout_.center;
        const double reach = 5.5 * textPx_;
        const double drop = 0.9 * textPx_;
        for (const auto& [color, width] :
             {std::pair{colors_[ColorKey::MapBackground], 0.55 * textPx_},
              std::pair{colors_[ColorKey::HsiAirplane], 0.35 * textPx_}}) {
            const Pen pen{color, width, PenStyle::Solid};
            for (const double side : {-1.0, 1.0})
                canvas_.polyline(std::array{Point{c.x + side * reach, c.y},
                                            Point{c.x + side * 0.45 * reach, c.y},
                                            Point{c.x + side * 0.45 * reach, c.y + drop}},
                                 pen);
            canvas_.circle(c, width * 0.9, Brush{color}, std::nullopt);
        }
    }

    void caption(const Rect& tape, std::string_view text) {
        band({tape.x, 0, tape.width, tape.y}, text);
    }

    void band(const Rect& box, std::string_view text) {
        canvas_.rect(box, Brush{colors_[ColorKey::MapInfoBackground]}, std::nullopt);
        canvas_.text(box.center(), text, style(1, colors_[ColorKey::MapInfoText]));
    }

    void speedTape() {
        UnitLabels labels;
        EfisTape tape{.area = layout_.speed};
        const double factor = ConvertDistance(1, data_.distanceUnit, &labels);
        if (data_.groundSpeedKt) {
            tape.value = *data_.groundSpeedKt * factor;
            tape.readOut = formatFixed(*tape.value, 0);
        }
        tape.visible = 90;
        tape.markStep = 10;
        tape.labelStep = 20;
        tape.fromZero = true;
        paintEfisTape(canvas_, tape, text(kInstrumentTexts.noGroundSpeed), textPx_, colors_);
        caption(tape.area,
                std::string(text(kInstrumentTexts.groundSpeed)).append(" ").append(labels.speed));
    }

    void altitudeTape() {
        const bool metric = data_.altUnit == 1;
        EfisTape tape{.kind = EfisTape::Kind::Right, .area = layout_.altitude};
        const NavFieldText altitude = navField(NavFieldId::Altitude).format(data_);
        if (data_.altitudeFt) {
            tape.value = *data_.altitudeFt * (metric ? kMetresPerFoot : 1.0);
            tape.readOut = altitude.value;
        }
        tape.visible = metric ? kVisibleMetres : kVisibleFeet;
        tape.markStep = metric ? 20 : 100;
        tape.labelStep = metric ? 100 : 200;
        paintEfisTape(canvas_, tape, text(kInstrumentTexts.noAltitude), textPx_, colors_);
        caption({tape.area.x, tape.area.y, tape.area.width + layout_.verticalSpeed.width,
                 tape.area.height},
                std::string(text(kInstrumentTexts.altitude)) + (metric ? " m" : " ft") +
                    (data_.altimeterOffsetFt ? "*" : ""));
    }

    // A bar from the middle; full scale is 2000 feet per minute. The number stands below.
    void verticalSpeed() {
        const Rect& area = layout_.verticalSpeed;
        canvas_.rect(area, Brush{colors_[ColorKey::MapBackground], 0.75}, std::nullopt);
        const double middle = area.center().y;
        const double perFpm = (area.height / 2 - textPx_) / kFullScaleFpm;
        std::vector<Segment> ticks;
        for (const double fpm :
             {-2000.0, -1500.0, -1000.0, -500.0, 0.0, 500.0, 1000.0, 1500.0, 2000.0})
            ticks.push_back({{area.x, middle - fpm * perFpm},
                             {area.x + area.width * 0.35, middle - fpm * perFpm}});
        canvas_.lines(ticks, inkPen(2));
        const NavFieldText text = navField(NavFieldId::VerticalSpeed).format(data_);
        if (data_.verticalSpeedFpm) {
            const double fpm =
                std::clamp<double>(*data_.verticalSpeedFpm, -kFullScaleFpm, kFullScaleFpm);
            const double end = middle - fpm * perFpm;
            canvas_.rect({area.x + area.width * 0.4, std::min(middle, end), area.width * 0.5,
                          std::abs(end - middle)},
                         Brush{colors_[ColorKey::HsiBearing]}, std::nullopt);
        }
        const Rect box{layout_.altitude.x, layout_.altitude.bottom(),
                       layout_.altitude.width + area.width,
                       canvas_.height() - layout_.altitude.bottom()};
        canvas_.rect(box, Brush{colors_[ColorKey::NavBackground]}, std::nullopt);
        canvas_.text(box.center(),
                     data_.verticalSpeedFpm
                         ? text.value + " " + text.unit
                         : std::string(korvel::text(kInstrumentTexts.verticalSpeed)) + " ---",
                     style(1.2, colors_[ColorKey::NavText]));
    }

    void headingTape() {
        EfisTape tape{.kind = EfisTape::Kind::Heading, .area = layout_.heading};
        if (data_.trackMagDeg) {
            tape.value = *data_.trackMagDeg;
            tape.readOut = courseText(*data_.trackMagDeg);
        }
        tape.visible = kVisibleHeadingDeg;
        tape.markStep = 10;
        tape.labelStep = 30;
        paintEfisTape(canvas_, tape, text(kInstrumentTexts.noTrack), 1.2 * textPx_, colors_);
        band({0, tape.area.y, tape.area.x, tape.area.height}, text(kInstrumentTexts.trackMagnetic));
        if (!data_.trackMagDeg || !data_.bearingMagDeg)
            return;
        // The bearing's mark waits at the end that is nearer to it.
        const double off = std::remainder(*data_.bearingMagDeg - *data_.trackMagDeg, 360.0);
        const double half = kVisibleHeadingDeg / 2;
        const double x = tape.area.center().x +
                         std::clamp(off / half, -1.0, 1.0) * (tape.area.width / 2 - 0.6 * textPx_);
        const double y = tape.area.y;
        canvas_.polygon(std::array{Point{x, y}, Point{x - 0.6 * textPx_, y - 0.9 * textPx_},
                                   Point{x + 0.6 * textPx_, y - 0.9 * textPx_}},
                        Brush{colors_[ColorKey::HsiBearing]},
                        Pen{colors_[ColorKey::MapBackground], 1, PenStyle::Solid});
    }

    // Nobody may take what is derived for gyros.
    void origin() {
        const TextStyle words = style(1.1, colors_[ColorKey::MapInfoText]);
        const std::string_view source = text(data_.attitudeMeasured ? kTrafficTexts.measuredAttitude
                                                                    : kInstrumentTexts.gpsDerived);
        const double width =
            std::ceil(canvas_.textMeasure().measure(source, words.font).width + textPx_);
        const Rect box{layout_.attitude.x, 0, width, std::round(1.7 * textPx_)};
        canvas_.rect(box, Brush{colors_[ColorKey::MapInfoBackground]}, std::nullopt);
        canvas_.text(box.center(), source, words);
    }

    Canvas& canvas_;
    const CockpitData& data_;
    const MapColorCache& colors_;
    EfisLayout layout_;
    double textPx_;
    ColorValue ink_;
};

}  // namespace

EfisLayout layOutEfis(double width, double height) {
    EfisLayout layout;
    const double text = instrumentTextPx(width, height);
    layout.textPx = text;
    const double band = std::round(2.4 * text);
    const double speed = std::round(std::clamp(width * 0.12, 4.6 * text, 7 * text));
    const double altitude = std::round(std::clamp(width * 0.13, 5.2 * text, 8 * text));
    const double vertical = std::round(1.8 * text);
    const double right = width - altitude - vertical;
    layout.speed = {0, band, speed, height - 2 * band};
    layout.altitude = {right, band, altitude, height - 2 * band};
    layout.verticalSpeed = {right + altitude, band, vertical, height - 2 * band};
    layout.heading = {speed, height - band, right - speed, band};
    layout.attitude = {speed, 0, right - speed, height - band};
    layout.center = {std::round(layout.attitude.center().x), std::round(layout.speed.center().y)};
    layout.bankRadius =
        std::min({layout.center.y - 1.8 * text, layout.attitude.width * 0.48, 16 * text});
    layout.pixelsPerDeg = std::max(1.0, layout.attitude.height / 45);
    return layout;
}

Point worldPoint(const EfisLayout& layout, double bankDeg, double pitchDeg, double right,
                 double up) {
    const double sine = std::sin(bankDeg * kDegToRad);
    const double cosine = std::cos(bankDeg * kDegToRad);
    const double height = up - pitchDeg * layout.pixelsPerDeg;
    return {layout.center.x + right * cosine - height * sine,
            layout.center.y - (right * sine + height * cosine)};
}

double efisVisibleFt(int altUnit) {
    return altUnit == 1 ? kVisibleMetres / kMetresPerFoot : kVisibleFeet;
}

bool isOnEfisPage(NavFieldId field) {
    return field == NavFieldId::GroundSpeed || field == NavFieldId::Track ||
           field == NavFieldId::Altitude || field == NavFieldId::VerticalSpeed;
}

void paintEfisPage(Canvas& canvas, const CockpitData& data, const MapColorCache& colors) {
    EfisPainter(canvas, data, colors).paint();
}

}  // namespace korvel
