#include "nav/aircraft/WindEstimator.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "geo/Geodesy.h"

namespace korvel {
namespace {

constexpr double kSlowestKt = 30;  // who taxies tells nothing
constexpr double kStepDeg = 5;     // of track between two samples
constexpr std::int64_t kTurnMs = 240'000;
constexpr std::int64_t kTrustedMs = 1'800'000;  // half an hour
constexpr std::size_t kFewest = 12;
constexpr double kLargestGapDeg = 190;  // of headings that were not flown
constexpr double kMostScatterKt = 5;    // off the circle, root mean square
constexpr double kLeastAirspeedKt = 30;
constexpr double kMostAirspeedKt = 500;

struct Circle {
    double east = 0;
    double north = 0;
    double radius = 0;
};

/// The circle of least squares about its algebraic distance; nothing for points on a line. `range`
/// are points with `east` and `north`.
template <class Range>
std::optional<Circle> circleThrough(const Range& range) {
    const auto count = static_cast<double>(range.size());
    double meanEast = 0;
    double meanNorth = 0;
    for (const auto& each : range) {
        meanEast += each.east / count;
        meanNorth += each.north / count;
    }
    double uu = 0;
    double uv = 0;
    double vv = 0;
    double uz = 0;
    double vz = 0;
    for (const auto& each : range) {
        const double u = each.east - meanEast;
        const double v = each.north - meanNorth;
        const double z = u * u + v * v;
        uu += u * u;
        uv += u * v;
        vv += v * v;
        uz += u * z;
        vz += v * z;
    }
    const double determinant = uu * vv - uv * uv;
    if (determinant < 1e-6 * (uu + vv) * (uu + vv))
        return std::nullopt;
    const double u = (uz * vv - vz * uv) / (2 * determinant);
    const double v = (vz * uu - uz * uv) / (2 * determinant);
    return Circle{.east = meanEast + u,
                  .north = meanNorth + v,
                  .radius = std::sqrt(u * u + v * v + (uu + vv) / count)};
}

}  // namespace

void WindEstimator::add(std::int64_t nowMs, double trackTrueDeg, double groundSpeedKt) {
    if (groundSpeedKt < kSlowestKt)
        return;
    if (lastTrackDeg_ && std::abs(std::remainder(trackTrueDeg - *lastTrackDeg_, 360.0)) < kStepDeg)
        return;
    lastTrackDeg_ = trackTrueDeg;
    const double angle = trackTrueDeg * kDegToRad;
    samples_.push_back({.atMs = nowMs,
                        .east = groundSpeedKt * std::sin(angle),
                        .north = groundSpeedKt * std::cos(angle)});
    while (nowMs - samples_.front().atMs > kTurnMs)
        samples_.pop_front();
    fit(nowMs);
}

void WindEstimator::fit(std::int64_t nowMs) {
    if (samples_.size() < kFewest)
        return;
    const auto circle = circleThrough(samples_);
    if (!circle || circle->radius < kLeastAirspeedKt || circle->radius > kMostAirspeedKt)
        return;
    double squares = 0;
    std::vector<double> headings;
    for (const Sample& sample : samples_) {
        const double east = sample.east - circle->east;
        const double north = sample.north - circle->north;
        const double off = std::hypot(east, north) - circle->radius;
        squares += off * off;
        headings.push_back(PositiveMod(std::atan2(east, north) * kRadToDeg, 360));
    }
    std::ranges::sort(headings);
    double gap = headings.front() + 360 - headings.back();
    for (std::size_t i = 1; i < headings.size(); ++i)
        gap = std::max(gap, headings[i] - headings[i - 1]);
    const double scatter = std::sqrt(squares / static_cast<double>(samples_.size()));
    if (gap > kLargestGapDeg || scatter > kMostScatterKt)
        return;
    // The middle is where the air goes to.
    const double from = std::atan2(-circle->east, -circle->north) * kRadToDeg;
    estimate_ = Estimate{.wind = {.fromTrueDeg = PositiveMod(from, 360),
                                  .speedKt = std::hypot(circle->east, circle->north)},
                         .airspeedKt = circle->radius,
                         .madeMs = nowMs};
}

void WindEstimator::forget() { *this = {}; }

std::optional<WindEstimator::Estimate> WindEstimator::estimate(std::int64_t nowMs) const {
    return estimate_ && nowMs - estimate_->madeMs < kTrustedMs ? estimate_ : std::nullopt;
}

}  // namespace korvel
