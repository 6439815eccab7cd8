#pragma once

#include <cstdint>
#include <deque>
#include <optional>

#include "cockpit/CockpitData.h"

namespace korvel {

/// Attitude out of the motion over the ground, for an aircraft without gyros: the bank of a
/// coordinated turn at the rate at which the track turns, and the angle of the flight path as
/// pitch. It follows the aircraft by one to two seconds and knows nothing of wind, slips and
/// angles of attack: good for a glance, not for flying by.
class DerivedAttitude {
 public:
    /// Slower aircraft taxi, and their track wanders.
    static constexpr double kSlowestKt = 25;
    /// What a light aircraft does at most; more is an error of the receiver.
    static constexpr double kMostBankDeg = 60;
    static constexpr double kMostPitchDeg = 30;

    /// Another aircraft flies on: what was seen until now is of no use.
    void forget();

    /// Takes the track, speeds and time of one tick and fills in turn rate, bank and pitch, which
    /// stay absent until the track has been known for two seconds. `nowMs` never runs backwards.
    void update(CockpitData& data, std::int64_t nowMs);

 private:
    struct Sample {
        std::int64_t atMs = 0;
        double trackDeg = 0;  ///< counted on beyond 360 and below 0
    };

    void add(double trackDeg, std::int64_t nowMs);
    std::optional<double> turnRate() const;

    bool simulated_ = false;      ///< what the samples are of
    std::deque<Sample> samples_;  ///< oldest first
    std::optional<double> pitchDeg_;
};

}  // namespace korvel
