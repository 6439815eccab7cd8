#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "cockpit/AirspaceView.h"
#include "geo/GeoPoint.h"

namespace korvel {

class AirspaceSet;
class AlarmBoard;

/// Watches the airspaces around the aircraft: which it is in, above, below and about to enter, with
/// the alarms of those that ask for a clearance. Main thread only.
class AirspaceWatch {
 public:
    /// Both must outlive it; its alarms join the board's.
    AirspaceWatch(const AirspaceSet& airspaces, AlarmBoard& board);
    AirspaceWatch(const AirspaceWatch&) = delete;
    AirspaceWatch& operator=(const AirspaceWatch&) = delete;
    ~AirspaceWatch() = default;

    /// What is absent is unknown. Without an altitude all that lies over or under the place counts.
    struct Situation {
        std::optional<GeoPoint> position{};
        std::optional<double> trackTrueDeg{};
        std::optional<double> groundSpeedKt{};
        std::optional<int> altitudeFt{};  ///< above sea, by the receiver
        std::optional<double> verticalSpeedFpm{};
        std::optional<int> groundFt{};  ///< below the aircraft
        int altUnit = 0;                ///< of the alarms' heights: 1 for metres
    };
    /// Once per tick, before the alarms are judged.
    void update(const Situation& now, std::int64_t nowMs);

    /// Null while no airspaces are loaded or the position is not known.
    [[nodiscard]] std::shared_ptr<const AirspaceList> shown() const { return list_; }

    /// An alarm is of those ahead for at most so long.
    static constexpr int kAlarmSec = 60;
    /// How far ahead the list looks.
    static constexpr int kListSec = 300;

 private:
    /// What the pilot is told of in one way, the newest at the end.
    struct Told {
        struct Entry {
            std::size_t airspace = 0;
            std::int64_t seenMs = 0;
        };
        std::vector<Entry> entries{};
        std::string words{};   ///< of the newest
        bool isFresh = false;  ///< one has joined at this tick: the alarm ends, to begin anew

        void update(const std::vector<std::size_t>& seen, std::int64_t nowMs);
        [[nodiscard]] bool holds(std::size_t airspace) const;
        [[nodiscard]] std::optional<std::string> condition() const;
    };
    struct Found {
        std::size_t airspace = 0;
        AirspaceView view;
    };

    void watch(const std::vector<Found>& found, const Situation& now, std::int64_t nowMs);

    const AirspaceSet& airspaces_;
    std::uint64_t revision_ = 0;
    std::shared_ptr<const AirspaceList> list_;
    Told inside_;
    Told ahead_;
};

}  // namespace korvel
