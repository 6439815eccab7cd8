#include "map/PlaceHit.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace korvel {
namespace {

/// A finger cannot tell distances apart that differ by less than this share of its radius.
constexpr double kFingerStep = 1.0 / 3;

double distancePx(Point a, Point b) { return std::hypot(a.x - b.x, a.y - b.y); }

double distanceTo(const MapPlace& place, const MapProjection& projection, int rangeNm,
                  Point finger) {
    double nearest = distancePx(finger, projection.project(place.place.position));
    if (rangeNm <= kRunwaysToNm && place.details)
        for (const MapRunway& runway : place.details->runways)
            nearest = std::min(nearest, distanceToLine(finger, projection.project(runway.ends[0]),
                                                       projection.project(runway.ends[1])));
    return nearest;
}

}  // namespace

double distanceToLine(Point point, Point from, Point to) {
    const double x = to.x - from.x;
    const double y = to.y - from.y;
    const double square = x * x + y * y;
    if (!(square > 0))
        return distancePx(point, from);
    const double along =
        std::clamp(((point.x - from.x) * x + (point.y - from.y) * y) / square, 0.0, 1.0);
    return distancePx(point, {from.x + x * along, from.y + y * along});
}

std::vector<const MapPlace*> placesAt(const PlaceSet& set, const MapProjection& projection,
                                      int rangeNm, Point finger, double radiusPx) {
    std::vector<std::pair<double, const MapPlace*>> hits;
    for (const MapPlace& place : set.places) {
        if (!isShown(place.place, place.placeClass, rangeNm, set.options))
            continue;
        const double away = distanceTo(place, projection, rangeNm, finger);
        if (away <= radiusPx)
            hits.emplace_back(std::floor(away / (radiusPx * kFingerStep)), &place);
    }
    // The set is in order of importance, which stays among those that are equally near.
    std::stable_sort(hits.begin(), hits.end(),
                     [](const auto& a, const auto& b) { return a.first < b.first; });
    std::vector<const MapPlace*> places;
    places.reserve(hits.size());
    for (const auto& [step, place] : hits)
        places.push_back(place);
    return places;
}

}  // namespace korvel
