#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "ground/airspace/AirspaceKind.h"

namespace korvel {

/// How an airspace lies to the aircraft.
enum class AirspaceRelation : std::uint8_t {
    Inside,  ///< or over or under the place, while the altitude is not known
    Ahead,   ///< the path leads into it
    Above,   ///< above the place, or a place ahead that the path passes below it
    Below,
};

/// An airspace as the pages show it.
struct AirspaceView {
    std::string name;
    std::string airspaceClass;  ///< the file's own word
    std::string limits;         ///< "25 / FL95"
    std::string frequency;      ///< empty for none
    AirspaceKind kind = AirspaceKind::Other;
    AirspaceRelation relation = AirspaceRelation::Inside;
    std::optional<int> seconds{};        ///< until it is entered, or its border is reached
    std::optional<double> distanceNm{};  ///< the same along the track
    std::optional<int> heightFt{};       ///< how far above or below its nearest limit is there

    friend bool operator==(const AirspaceView&, const AirspaceView&) = default;
};

/// Those the aircraft is in, those ahead by time, those above from below, those below from above.
using AirspaceList = std::vector<AirspaceView>;

}  // namespace korvel
