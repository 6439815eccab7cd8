#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "geo/GeoPoint.h"

namespace korvel {

/// A way over the ground as points that stand evenly far from each other along it.
struct ProfileLine {
    /// The first stands where the way begins. Longitudes go on beyond pi where it crosses the 180th
    /// meridian.
    std::vector<GeoPoint> points;
    double stepNm = 0;  ///< from one to the next

    [[nodiscard]] double nmOf(std::size_t point) const {
        return stepNm * static_cast<double>(point);
    }
    [[nodiscard]] double lengthNm() const { return points.empty() ? 0 : nmOf(points.size() - 1); }
};

/// The first `lengthNm` of the great circles from each of these places to the next, in so many
/// steps; a longer line goes straight on behind the last place. Empty for fewer than two places
/// that lie apart, and for no length.
ProfileLine profileLine(std::span<const GeoPoint> way, double lengthNm, std::size_t steps);

/// The same place with its longitude within half a turn of Greenwich.
GeoPoint wrapped(GeoPoint point);

}  // namespace korvel
