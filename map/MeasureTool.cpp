#include "map/MeasureTool.h"

#include <cmath>

#include "geo/Geodesy.h"
#include "geo/Variation.h"
#include "map/MapViewport.h"

namespace korvel {
namespace {

/// A finger this near to an end takes hold of it.
constexpr double kHoldPixels = 24;
/// Slower than this the time to get anywhere says nothing.
constexpr double kSlowestKt = 5;
constexpr double kSecondsPerHour = 3600;

bool isUnder(Point finger, const std::optional<MeasureEnd>& end, const MapProjection& projection,
             const CockpitData& data) {
    const auto position = end ? positionOf(*end, data) : std::nullopt;
    if (!position)
        return false;
    const Point at = projection.project(*position);
    return std::hypot(at.x - finger.x, at.y - finger.y) <= kHoldPixels;
}

std::optional<double> magnetic(double trueDeg, const MeasureEnd& end) {
    return end.variationDeg ? std::optional(magneticOf(trueDeg, *end.variationDeg)) : std::nullopt;
}

}  // namespace

void MeasureTool::setOn(bool on) {
    *this = {};
    on_ = on;
}

void MeasureTool::press(Point finger, const MapProjection& projection, const CockpitData& data,
                        const Snap& snap) {
    held_ = Held::To;
    startsAnew_ = false;
    if (from_ && to_ && isUnder(finger, to_, projection, data))
        return;
    if (from_ && to_ && isUnder(finger, from_, projection, data)) {
        held_ = Held::From;
        return;
    }
    if (from_ && !to_) {
        to_ = snap(finger);
        return;
    }
    from_ = snap(finger);
    to_.reset();
    startsAnew_ = true;
}

void MeasureTool::drag(Point finger, const Snap& snap) {
    if (held_ == Held::To)
        to_ = snap(finger);
    else if (held_ == Held::From)
        from_ = snap(finger);
}

void MeasureTool::release() {
    held_ = Held::None;
    // A finger that came back to where it started has only tapped.
    if (startsAnew_ && to_ && from_ && SamePoint(from_->position, to_->position))
        to_.reset();
}

std::optional<GeoPoint> positionOf(const MeasureEnd& end, const CockpitData& data) {
    return end.aircraft ? data.position : std::optional(end.position);
}

std::optional<int> secondsOver(double nm, const CockpitData& data) {
    if (!data.groundSpeedKt || *data.groundSpeedKt < kSlowestKt)
        return std::nullopt;
    return RoundToInt(nm / *data.groundSpeedKt * kSecondsPerHour);
}

std::optional<MeasureFigures> measure(const MeasureTool& tool, const CockpitData& data) {
    if (!tool.isOn() || !tool.from() || !tool.to())
        return std::nullopt;
    const auto from = positionOf(*tool.from(), data);
    const auto to = positionOf(*tool.to(), data);
    if (!from || !to)
        return std::nullopt;
    MeasureFigures figures;
    figures.distanceNm = DistanceNm(*from, *to);
    figures.trueDeg = TrueCourseDeg(*from, *to);
    figures.backTrueDeg = TrueCourseDeg(*to, *from);
    figures.magneticDeg = magnetic(figures.trueDeg, *tool.from());
    figures.backMagneticDeg = magnetic(figures.backTrueDeg, *tool.to());
    figures.seconds = secondsOver(figures.distanceNm, data);
    return figures;
}

}  // namespace korvel
