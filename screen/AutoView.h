#pragma once

#include <optional>

#include "cockpit/CockpitData.h"
#include "cockpit/PageId.h"

namespace korvel {

/// Automatic view, which does one thing: near the destination, and in approach mode, it puts the
/// HSI over the map, and takes it away when that is over. It leaves no page but "Map" and
/// "North-Up", and comes back to the one that it left. Where the pilot changes the page himself it
/// lets that approach be.
class AutoView {
 public:
    /// Comes in at this distance to the plan's last entry or a direct-to's waypoint.
    static constexpr double kNearNm = 10;
    static constexpr double kFarNm = 12;  ///< goes out
    static constexpr double kFlyingKt = 30;
    static constexpr double kLandedKt = 20;

    /// One half-second tick; the page to show, if another.
    std::optional<PageId> tick(PageId shown, const CockpitData& data);

    /// The pilot has chosen a page: it comes in again at the next approach, and not within 30 s.
    void leaveAlone();

 private:
    bool isNear(const CockpitData& data) const;

    std::optional<PageId> left_;  // where it came from
    bool near_ = false;
    bool declined_ = false;  // by the pilot, for this approach
    int restTicks_ = 0;
};

}  // namespace korvel
