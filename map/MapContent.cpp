#include "map/MapContent.h"

#include "cockpit/CockpitData.h"

namespace korvel {

Point MapContent::aircraft() const {
    constexpr Point kNowhere{-1e6, -1e6};
    const std::optional<GeoPoint>& position = data.position ? data.position : data.lastPosition;
    return position ? view.projection.project(*position) : kNowhere;
}

}  // namespace korvel
