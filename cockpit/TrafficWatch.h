#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include "cockpit/TrafficView.h"
#include "config/TrafficChoice.h"

namespace korvel {

class AlarmBoard;
class TrafficTable;

/// Other aircraft: where they are by now, how much they matter, and the alarms of those that come
/// too near. Main thread only.
class TrafficWatch {
 public:
    /// Who has not been heard of for so long is gone.
    static constexpr std::int64_t kGoneMs = 60'000;

    /// Adds the alarms, which the board asks for with each of its updates. Must outlive the board.
    void addTo(AlarmBoard& board);

    /// Once per tick. `own` moves; its heights come from the table, where all are above the
    /// standard pressure. Null when nobody tells of traffic.
    void update(const TrafficTable* heard, const std::optional<MovingAircraft>& own, int altUnit,
                std::int64_t nowMs);

    /// Those within the pilot's heights, and all that are too near. Null for none.
    [[nodiscard]] std::shared_ptr<const TrafficList> shown(const TrafficChoice& choice) const;

 private:
    [[nodiscard]] std::optional<std::string> wordsFor(TrafficLevel level) const;

    TrafficList list_;
    std::optional<MovingAircraft> own_;
    int altUnit_ = 0;
};

/// "+300 ft  120 kt  3 s", what is unknown left out: how it flies, and the age of its report.
std::string trafficMotion(const TrafficView& traffic, int altUnit);

/// "N123AB  +300 ft  1.2 nm  120 kt  3 s", what is unknown left out.
std::string trafficText(const TrafficView& traffic, const std::optional<GeoPoint>& own,
                        int altUnit);

}  // namespace korvel
