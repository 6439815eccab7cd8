#pragma once

#include <memory>
#include <optional>
#include <string>

#include "map/PlanBand.h"
#include "navdb/records/DatabaseRecord.h"
#include "paint/Canvas.h"

namespace korvel {

class CKorvelDoc;
class MapFeeds;

/// A leg or a waypoint of the plan in a pilot's hand: taken, pulled over the map, and dropped on a
/// place or on bare ground. The plan changes with the drop alone.
class PlanDrag {
 public:
    /// False when there is nothing of the plan under the finger.
    bool take(Point finger, const MapView& view, const CockpitData& data);
    /// Snaps to the place under the finger.
    void pull(Point finger, const MapView& view, const MapFeeds& feeds, const CKorvelDoc& document);
    /// Changes the plan, as one step that can be undone; what to tell the pilot, empty when nothing
    /// has changed.
    [[nodiscard]] std::string drop(CKorvelDoc& document);
    void cancel() { band_.reset(); }

    /// Null while nothing is held.
    [[nodiscard]] const PlanBand* band() const { return band_ ? &*band_ : nullptr; }

 private:
    std::optional<PlanBand> band_;
    std::shared_ptr<const DatabaseRecord> place_;  ///< under the finger; null for bare ground
};

}  // namespace korvel
