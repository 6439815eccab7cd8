#pragma once

#include <optional>
#include <string>

#include "geo/GeoPoint.h"

namespace korvel {

/// A place that the pilot typed or pointed at. Identifiers repeat over the world: `where` tells
/// which of them is meant, when that is known.
struct PlaceChoice {
    std::string identifier;  ///< or RecordKey
    std::optional<GeoPoint> where;
};

}  // namespace korvel
