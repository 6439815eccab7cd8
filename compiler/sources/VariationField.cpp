#include "compiler/sources/VariationField.h"

#include <cmath>

#include "geo/Geodesy.h"

namespace korvel {

namespace {

std::array<double, 3> directionOf(const GeoDegrees& position) {
    const GeoPoint point = toGeoPoint(position);
    const double radius = std::cos(point.lat);
    return {radius * std::cos(point.lon), radius * std::sin(point.lon), std::sin(point.lat)};
}

}  // namespace

VariationField::VariationField(std::span<const SourceNavaid> navaids) {
    for (const auto& navaid : navaids)
        if (navaid.variation && *navaid.variation != 0.0)
            stations_.push_back({directionOf(navaid.position), *navaid.variation});
}

// Three multiplications a station make looking at all of them fast enough: a tenth of a second for
// the airports of the world.
std::optional<double> VariationField::at(const GeoDegrees& position) const {
    const auto here = directionOf(position);
    double best = std::cos(kReachNm / kNmPerRadian);
    std::optional<double> variation;
    for (const auto& station : stations_) {
        const double cosine = here[0] * station.direction[0] + here[1] * station.direction[1] +
                              here[2] * station.direction[2];
        if (cosine > best) {
            best = cosine;
            variation = station.variation;
        }
    }
    return variation;
}

}  // namespace korvel
