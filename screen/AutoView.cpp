#include "screen/AutoView.h"

#include <utility>

namespace korvel {
namespace {

constexpr int kRestTicks = 60;  // of half a second

bool isDestination(const CockpitData& data) {
    if (data.directLeg)
        return true;
    return data.plan && data.plan->active && *data.plan->active + 1 == data.plan->rows.size();
}

}  // namespace

bool AutoView::isNear(const CockpitData& data) const {
    if (data.groundSpeedKt.value_or(0) < (near_ ? kLandedKt : kFlyingKt))
        return false;
    if (data.approach)
        return true;
    return isDestination(data) && data.distanceNm && *data.distanceNm <= (near_ ? kFarNm : kNearNm);
}

std::optional<PageId> AutoView::tick(PageId shown, const CockpitData& data) {
    if (!data.position)
        return std::nullopt;  // nothing is known: nothing moves
    const bool rests = restTicks_ > 0;
    restTicks_ -= rests ? 1 : 0;
    near_ = isNear(data);
    if (shown != PageId::MapHsi)
        left_.reset();
    if (!near_) {
        declined_ = false;
        return std::exchange(left_, std::nullopt);
    }
    if (rests || declined_ || (shown != PageId::Map && shown != PageId::NorthUp))
        return std::nullopt;
    left_ = shown;
    return PageId::MapHsi;
}

void AutoView::leaveAlone() {
    left_.reset();
    declined_ = near_;
    restTicks_ = kRestTicks;
}

}  // namespace korvel
