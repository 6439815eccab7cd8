#include "compiler/AirwayNetwork.h"

#include <utility>

namespace korvel {

AirwayNetwork::PointIndex AirwayNetwork::add(AirwayPoint point) {
    const auto index = static_cast<PointIndex>(points_.size());
    byIdent_[point.ident].push_back(index);
    points_.push_back(std::move(point));
    return index;
}

AirwayNetwork::PointIndex AirwayNetwork::pointAt(std::string_view ident,
                                                 const GeoDegrees& position) {
    for (const PointIndex index : byIdent_[std::string(ident)]) {
        const auto& known = points_[index].position;
        if (known && samePlace(*known, position))
            return index;
    }
    AirwayPoint point;
    point.ident = ident;
    point.position = position;
    return add(std::move(point));
}

AirwayNetwork::PointIndex AirwayNetwork::pointIn(std::string_view ident, std::string_view region,
                                                 AirwayPointType type) {
    for (const PointIndex index : byIdent_[std::string(ident)])
        if (points_[index].region == region && points_[index].type == type)
            return index;
    AirwayPoint point;
    point.ident = ident;
    point.region = region;
    point.type = type;
    return add(std::move(point));
}

void AirwayNetwork::addSegment(std::string_view airway, PointIndex a, PointIndex b) {
    auto found = airways_.find(airway);
    if (found == airways_.end())
        found = airways_.emplace(std::string(airway), std::vector<Segment>{}).first;
    found->second.push_back({a, b});
}

void AirwayNetwork::markUse(PointIndex point, bool high) {
    (high ? points_[point].onHigh : points_[point].onLow) = true;
}

}  // namespace korvel
