#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

#include "receiver/gdl90/Gdl90Message.h"

namespace korvel {

/// What a traffic receiver said of an aircraft, and when it came (Clock::tickMs()).
struct TrafficReport {
    Gdl90Target target;
    std::int64_t arrivedMs = 0;
};

/// The newest report of each aircraft around and of the own one. The own one is left out of the
/// others, also where the receiver hears its transponder. When there are too many, who was heard
/// longest ago makes room.
class TrafficTable {
 public:
    static constexpr std::size_t kMost = 256;

    void take(const Gdl90Target& target, std::int64_t arrivedMs);

    /// In no order; those that were not heard for long among them.
    [[nodiscard]] const std::vector<TrafficReport>& others() const { return others_; }
    [[nodiscard]] const std::optional<TrafficReport>& own() const { return own_; }

 private:
    std::vector<TrafficReport> others_;
    std::optional<TrafficReport> own_;
};

}  // namespace korvel
