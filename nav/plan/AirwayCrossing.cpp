#include "nav/plan/AirwayCrossing.h"

#include <algorithm>
#include <optional>

#include "geo/Geodesy.h"

namespace korvel {
namespace {

/// The longitude that lies less than half a turn from `reference`.
double unwrapped(double lon, double reference) {
    return PositiveMod(lon - reference + kPi, kTwoPi) - kPi + reference;
}

/// A segment as a line in the plane: longitude to the right, latitude upwards.
struct Line {
    Line(GeoPoint from, GeoPoint to, double reference)
        : x(unwrapped(from.lon, reference)), y(from.lat), endX(unwrapped(to.lon, x)) {
        const double rise = to.lat - from.lat;
        // In place of an infinite slope.
        slope = endX != x ? rise / (endX - x) : (rise < 0 ? -10.0 : 10.0);
    }
    [[nodiscard]] bool spans(double lon) const {
        return lon >= std::min(x, endX) && lon <= std::max(x, endX);
    }

    double x;
    double y;
    double endX;
    double slope = 0.0;
};

std::optional<GeoPoint> crossing(const Line& a, const Line& b) {
    if (a.slope == b.slope)
        return std::nullopt;
    const double x = (b.y - a.y + a.slope * a.x - b.slope * b.x) / (a.slope - b.slope);
    if (!a.spans(x) || !b.spans(x))
        return std::nullopt;
    return GeoPoint{a.y + a.slope * (x - a.x), unwrapped(x, 0.0)};
}

}  // namespace

AirwayCrossing FindAirwayCrossing(std::span<const GeoPoint> a, std::span<const GeoPoint> b) {
    for (std::size_t i = 0; i + 1 < a.size(); ++i) {
        if (!IsValid(a[i]) || !IsValid(a[i + 1]))
            continue;
        const Line lineA(a[i], a[i + 1], a[i].lon);
        for (std::size_t j = 0; j + 1 < b.size(); ++j) {
            if (!IsValid(b[j]) || !IsValid(b[j + 1]))
                continue;
            if (const auto point = crossing(lineA, Line(b[j], b[j + 1], a[i].lon)))
                return {.position = *point, .startA = i, .startB = j};
        }
    }
    return {};
}

}  // namespace korvel
