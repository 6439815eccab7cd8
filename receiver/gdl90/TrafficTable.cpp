#include "receiver/gdl90/TrafficTable.h"

#include <algorithm>

namespace korvel {
namespace {

/// Given to the aircraft for good, whoever relays it; other addresses are the relay's own.
bool isIcaoAddress(const Gdl90Target& target) {
    return target.addressType == 0 || target.addressType == 2;
}

bool isSame(const Gdl90Target& a, const Gdl90Target& b) {
    return a.address == b.address &&
           (a.addressType == b.addressType || (isIcaoAddress(a) && isIcaoAddress(b)));
}

}  // namespace

void TrafficTable::take(const Gdl90Target& target, std::int64_t arrivedMs) {
    if (target.isOwn) {
        own_ = TrafficReport{target, arrivedMs};
        std::erase_if(others_,
                      [&](const TrafficReport& other) { return isSame(other.target, target); });
        return;
    }
    if (own_ && isSame(own_->target, target))
        return;
    auto place = std::ranges::find_if(
        others_, [&](const TrafficReport& other) { return isSame(other.target, target); });
    if (place == others_.end() && others_.size() == kMost)
        place = std::ranges::min_element(others_, {}, &TrafficReport::arrivedMs);
    if (place == others_.end())
        place = others_.emplace(others_.end());
    *place = {target, arrivedMs};
}

}  // namespace korvel
