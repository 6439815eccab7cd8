#pragma once

#include <cstdint>
#include <optional>

#include "geo/GeoPoint.h"
#include "nav/plan/RouteWords.h"

namespace korvel {

// From values that stand for "unknown", as navigation holds them, to nothing, as the pages do.

inline std::optional<double> known(double value, double sentinel) {
    return value == sentinel ? std::nullopt : std::optional(value);
}

inline std::optional<int> known(std::int32_t feet) {
    return feet == kNoAltitudeFt ? std::nullopt : std::optional<int>(feet);
}

inline std::optional<GeoPoint> known(GeoPoint point) {
    return IsValid(point) ? std::optional(point) : std::nullopt;
}

}  // namespace korvel
