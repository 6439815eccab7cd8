#pragma once

#include <string>
#include <vector>

#include "ground/airspace/Airspace.h"

namespace korvel {

/// Gathers the outline of one airspace from points, arcs and circles. Messages are empty on
/// success.
class OpenAirRing {
 public:
    void addPoint(GeoPoint point) { points_.push_back(point); }
    /// From one bearing to another around the centre; degrees true, nautical miles.
    [[nodiscard]] std::string addArc(GeoPoint center, double radiusNm, double fromDeg, double toDeg,
                                     bool clockwise);
    /// From one point to another; they need not lie on one circle, the radius changes evenly.
    void addArc(GeoPoint center, GeoPoint from, GeoPoint to, bool clockwise);
    [[nodiscard]] std::string addCircle(GeoPoint center, double radiusNm);
    /// A point of an airway as wide as that.
    void addAirway(GeoPoint point, double widthNm);

    [[nodiscard]] bool isEmpty() const;
    /// The rings, closed; the message when there are none.
    [[nodiscard]] std::string finish(std::vector<AirspaceRing>& rings) const;

 private:
    void sweep(GeoPoint center, double fromNm, double toNm, double fromDeg, double sweepDeg);

    AirspaceRing points_;
    std::vector<AirspaceRing> circles_;
    AirspaceRing airway_;
    double airwayNm_ = 0;
};

}  // namespace korvel
