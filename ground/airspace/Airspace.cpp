#include "ground/airspace/Airspace.h"

#include <algorithm>
#include <cmath>

#include "geo/Geodesy.h"
#include "geo/Longitude.h"
#include "geo/Units.h"

namespace korvel {
namespace {

/// Even-odd; `lon` in the ring's own turn.
bool isInside(const AirspaceRing& ring, double lat, double lon) {
    bool inside = false;
    GeoPoint from = ring.back();
    for (const GeoPoint to : ring) {
        if ((from.lat > lat) != (to.lat > lat)) {
            const double share = (lat - from.lat) / (to.lat - from.lat);
            if (lon < from.lon + share * (to.lon - from.lon))
                inside = !inside;
        }
        from = to;
    }
    return inside;
}

bool holds(const AirspaceRing& ring, GeoPoint point) {
    return !ring.empty() &&
           (isInside(ring, point.lat, point.lon) || isInside(ring, point.lat, point.lon + kTwoPi) ||
            isInside(ring, point.lat, point.lon - kTwoPi));
}

/// Between the ring and the equator, summed.
double ringAreaNm2(const AirspaceRing& ring) {
    double sum = 0;
    GeoPoint from = ring.back();
    for (const GeoPoint to : ring) {
        sum += (to.lon - from.lon) * (std::sin(from.lat) + std::sin(to.lat)) / 2;
        from = to;
    }
    return std::abs(sum) * kNmPerRadian * kNmPerRadian;
}

double wrappedDeg(double lon) { return wrappedLongitudeDeg(lon * kRadToDeg); }

}  // namespace

std::string limitWords(const AltitudeLimit& limit) {
    if (!limit.ft)
        return limit.reference == LimitReference::Unlimited ? "UNL"
               : limit.text.empty()                         ? "?"
                                                            : limit.text;
    const int hundreds = RoundToInt(*limit.ft / 100.0);
    std::string number = std::to_string(hundreds);
    if (limit.reference == LimitReference::FlightLevel)
        return "FL" + number;
    if (limit.reference == LimitReference::Agl)
        return *limit.ft == 0 ? "GND" : number + " AGL";
    return number;
}

std::size_t Airspace::points() const {
    std::size_t count = 0;
    for (const AirspaceRing& ring : rings)
        count += ring.size();
    return count;
}

AirspaceBox Airspace::box() const {
    double south = kPi / 2;
    double north = -kPi / 2;
    double west = 2 * kTwoPi;
    double east = -2 * kTwoPi;
    for (const AirspaceRing& ring : rings) {
        for (const GeoPoint point : ring) {
            south = std::min(south, point.lat);
            north = std::max(north, point.lat);
            west = std::min(west, point.lon);
            east = std::max(east, point.lon);
        }
    }
    if (east - west >= kTwoPi)
        return {south * kRadToDeg, -180, north * kRadToDeg, 180};
    return {south * kRadToDeg, wrappedDeg(west), north * kRadToDeg, wrappedDeg(east)};
}

double Airspace::areaNm2() const {
    double area = 0;
    for (std::size_t i = 0; i < rings.size(); ++i) {
        bool within = false;
        for (std::size_t k = 0; k < rings.size(); ++k)
            within = within || (k != i && holds(rings[k], rings[i].front()));
        if (!within)
            area += ringAreaNm2(rings[i]);
    }
    return area;
}

bool Airspace::contains(GeoPoint point) const {
    return std::ranges::any_of(
        rings, [&](const AirspaceRing& ring) { return holds(ring, point); });
}

bool Airspace::reaches(int altitudeFt, std::optional<int> groundFt) const {
    return altitudeFt >= floorFt(groundFt) && altitudeFt <= ceilingFt(groundFt);
}

int Airspace::floorFt(std::optional<int> groundFt) const {
    if (!floor.ft)
        return kLowestAltitudeFt;
    if (floor.reference != LimitReference::Agl)
        return *floor.ft;
    // What counts from the ground counts from sea level where the ground is not known: lower.
    return *floor.ft == 0 ? kLowestAltitudeFt : *floor.ft + groundFt.value_or(0);
}

int Airspace::ceilingFt(std::optional<int> groundFt) const {
    if (!ceiling.ft)
        return kHighestAltitudeFt;
    return *ceiling.ft + (ceiling.reference == LimitReference::Agl ? groundFt.value_or(0) : 0);
}

std::string limitWords(const Airspace& airspace) {
    return limitWords(airspace.floor) + " / " + limitWords(airspace.ceiling);
}

}  // namespace korvel
