#include "map/profile/ProfileAxes.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <initializer_list>

#include "base/TextNumbers.h"
#include "geo/Geodesy.h"
#include "paint/TypeSizes.h"

namespace korvel {
namespace {

constexpr double kSmallestPx = 11;
constexpr double kLinesInStrip = 7;        ///< of text, one over the other
constexpr double kHeadroom = 0.12;         ///< above the highest that is shown
constexpr double kLeastSpanFt = 1500;      ///< so that flat land looks flat
constexpr double kLinesPerAltitude = 1.4;  ///< between two figures
constexpr double kPixelsPerDistance = 64;
constexpr int kMetres = 1;

/// The smallest of these digits times a power of ten that is not smaller.
double roundStep(double least, std::initializer_list<double> digits) {
    const double power = std::pow(10, std::floor(std::log10(least)));
    for (const double digit : digits)
        if (digit * power >= least * (1 - 1e-9))
            return digit * power;
    return 10 * power;
}

struct Span {
    double low = 0;
    double high = 0;
    bool isEmpty = true;

    void take(double ft) {
        low = isEmpty ? ft : std::min(low, ft);
        high = isEmpty ? ft : std::max(high, ft);
        isEmpty = false;
    }
};

/// Of the ground and of what is flown; airspaces reach to any height.
Span spanOf(const ProfileContent& content) {
    Span span;
    for (const GroundSample& sample : content.ground)
        if (sample.highestFt)
            span.take(*sample.highestFt);
    if (span.isEmpty)
        span.take(0);
    if (content.altitudeFt)
        span.take(*content.altitudeFt);
    for (const ProfilePoint& point : content.planned.line)
        span.take(point.ft);
    span.high = std::max(span.high + kHeadroom * (span.high - span.low), span.low + kLeastSpanFt);
    return span;
}

}  // namespace

ProfileAxes::ProfileAxes(const ProfileContent& content, double width, double height,
                         const TextMeasure& texts)
    : font_{.height = std::clamp(std::round(height / kLinesInStrip), kSmallestPx,
                                 mapTextPx(width, height))},
      lengthNm_(std::max(content.lengthNm, 1e-3)) {
    const double line = font_.height;
    plot_ = {0, std::round(0.5 * line), width, 0};
    plot_.height = std::max(height - plot_.y - std::round(1.4 * line), 1.0);
    layOutAltitudes(content);
    double widest = 0;
    for (const Tick& tick : altitudes_)
        widest = std::max(widest, texts.measure(tick.label, font_).width);
    plot_.x = std::ceil(widest + 0.4 * line) + kProfileAircraftRoomPx;
    plot_.width = std::max(width - plot_.x - 0.5 * line, 1.0);
    layOutDistances(content);
}

double ProfileAxes::x(double nm) const { return plot_.x + nm / lengthNm_ * plot_.width; }

double ProfileAxes::y(double ft) const {
    return plot_.bottom() - (ft - lowFt_) / (highFt_ - lowFt_) * plot_.height;
}

void ProfileAxes::layOutAltitudes(const ProfileContent& content) {
    const bool metres = content.altUnit == kMetres;
    const double feet = metres ? 1 / kMetresPerFoot : 1;  // in one of the unit
    const Span span = spanOf(content);
    const double most =
        std::max(std::floor(plot_.height / (kLinesPerAltitude * font_.height)), 1.0);
    const double step = roundStep((span.high - span.low) / feet / most, {1, 2, 2.5, 5});
    // The ends move in smaller steps, not with each foot.
    constexpr double kStepsBetween = 5;
    const double part = step * feet / kStepsBetween;
    lowFt_ = std::floor(span.low / part) * part;
    highFt_ = std::ceil(span.high / part) * part;
    const int last = static_cast<int>(std::floor(highFt_ / feet / step * (1 + 1e-9)));
    for (int i = static_cast<int>(std::ceil(lowFt_ / feet / step)); i <= last; ++i) {
        std::string label = formatInt(RoundToInt(i * step));
        if (i == last)
            label += metres ? " m" : " ft";
        altitudes_.push_back({y(i * step * feet), std::move(label)});
    }
}

void ProfileAxes::layOutDistances(const ProfileContent& content) {
    UnitLabels labels;
    const double unitsPerNm = ConvertDistance(1, content.distanceUnit, &labels);
    const double units = lengthNm_ * unitsPerNm;
    const double step = roundStep(units * kPixelsPerDistance / plot_.width, {1, 2, 5});
    for (int i = 0; i * step <= units * (1 + 1e-9); ++i) {
        std::string label = formatFixed(i * step, step < 1 ? 1 : 0);
        if (i == 0)
            label = labels.distance;
        distances_.push_back({x(i * step / unitsPerNm), std::move(label)});
    }
}

}  // namespace korvel
