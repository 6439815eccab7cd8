#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "nav/plan/RouteWords.h"
#include "navdb/records/DatabaseRecord.h"

namespace korvel {

/// An entry of a plan.
struct PlanWaypoint {
    std::string text;  ///< identifier or key, with its altitude suffix if it has one
    std::string key;   ///< the text without the suffix
    std::int32_t altitudeFt = kNoAltitudeFt;
    std::shared_ptr<const DatabaseRecord> record;  ///< what it resolved to; never null in a plan

    [[nodiscard]] GeoPoint position() const { return record->position; }
};

}  // namespace korvel
