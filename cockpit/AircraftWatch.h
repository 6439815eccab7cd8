#pragma once

#include <cstdint>
#include <optional>

#include "config/AircraftProfile.h"
#include "geo/GeoPoint.h"
#include "nav/aircraft/FuelTank.h"
#include "nav/aircraft/Wind.h"
#include "nav/aircraft/WindEstimator.h"

namespace korvel {

class AlarmBoard;
class Clock;
class ProfileFile;
struct CockpitData;

/// The pilot's aircraft in flight: its fuel, the wind that it flies in, and where the descent
/// begins. The aircraft and its fuel are kept in the profile, the fuel for half a day; the wind is
/// forgotten with the program. Main thread only.
class AircraftWatch {
 public:
    /// All of it must outlive this, and this the board, which asks it. `clock` tells the time of
    /// day.
    AircraftWatch(ProfileFile& profile, const Clock& clock, AlarmBoard& board);
    AircraftWatch(const AircraftWatch&) = delete;
    AircraftWatch& operator=(const AircraftWatch&) = delete;
    ~AircraftWatch() = default;

    struct Situation {
        std::int64_t flightMs = 0;  ///< by the flight's own time, which a simulator may let fly
        bool simulated = false;
        std::optional<double> groundSpeedKt{};
        std::optional<double> trackTrueDeg{};
        std::optional<int> altitudeFt{};
        double flyingFromKt = 0;  ///< who is faster flies, until slower than
        double flyingToKt = 0;
        // The descent path, as NavigationState has it.
        std::optional<int> pathTargetFt{};
        std::optional<double> pathNm{};
        GeoPoint pathEnd{};
    };
    /// Once per tick. What a simulator burns is put back when it ends.
    void update(const Situation& now);
    /// The aircraft is another one, or elsewhere.
    void forgetMotion();
    void fill(CockpitData& data) const;

    [[nodiscard]] const std::optional<AircraftProfile>& aircraft() const { return aircraft_; }
    /// Puts it in force and into the profile; without one no fuel is counted.
    void choose(const std::optional<AircraftProfile>& aircraft);
    /// So much is on board now, in the aircraft's unit; nothing: that is not known.
    void enterFuel(std::optional<double> amount);
    /// In force until another one is entered; without one the estimated wind is.
    void enterWind(const std::optional<Wind>& wind);

 private:
    void takeUpFuel();
    void keepFuel();
    [[nodiscard]] bool isTankDue() const;
    [[nodiscard]] std::optional<double> descentInSec() const;
    [[nodiscard]] std::optional<int> minutesToDescent(bool holds);

    ProfileFile& profile_;
    const Clock& clock_;
    std::optional<AircraftProfile> aircraft_;
    FuelTank tank_;
    std::optional<double> realFuel_;  // while a simulator burns it
    std::int64_t fuelEnteredUnix_ = 0;
    std::int64_t fuelKeptUnix_ = 0;
    WindEstimator estimator_;
    std::optional<Wind> entered_;
    std::int64_t windEnteredUnix_ = 0;
    Situation now_;
    bool flies_ = false;
    std::int64_t flownMs_ = 0;               // since the take-off
    std::optional<GeoPoint> toldDescentTo_;  // that its beginning has been told of
};

}  // namespace korvel
