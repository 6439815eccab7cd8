#pragma once

#include <cstdint>
#include <optional>

namespace korvel {

/// What is left of the fuel that the pilot has told, counted down while the aircraft flies. One
/// thread.
class FuelTank {
 public:
    /// So much is on board now; nothing: that is not known.
    void fill(std::optional<double> amount) { left_ = amount; }
    /// Once per tick. Flies or stands since the tick before; `nowMs` runs on by the flight's time.
    void step(bool flies, double burnPerHour, std::int64_t nowMs);

    /// Never below 0. Nothing while the pilot has told nothing.
    [[nodiscard]] std::optional<double> left() const { return left_; }

 private:
    std::optional<double> left_;
    std::optional<std::int64_t> steppedMs_;
};

}  // namespace korvel
