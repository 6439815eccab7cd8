#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "geo/GeoPoint.h"

namespace korvel {

class AlarmBoard;

/// Tells who flies by day that the sun will have set where the flight ends. Main thread only.
class NightWatch {
 public:
    /// Its alarm joins the board's, which it must outlive.
    explicit NightWatch(AlarmBoard& board);
    NightWatch(const NightWatch&) = delete;
    NightWatch& operator=(const NightWatch&) = delete;
    ~NightWatch() = default;

    /// What is absent is unknown.
    struct Situation {
        std::optional<GeoPoint> position{};
        std::optional<GeoPoint> end{};         ///< of the flight
        std::optional<double> secondsToEnd{};  ///< at the present speed
        std::int64_t unixSeconds = 0;
        int localSecondOfDay = 0;  ///< the same moment
    };
    /// Once per tick, before the alarms are judged.
    void update(const Situation& now) { now_ = now; }

 private:
    [[nodiscard]] std::optional<std::string> condition(bool holds) const;

    Situation now_;
};

}  // namespace korvel
