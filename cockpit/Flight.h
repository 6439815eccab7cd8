#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "cockpit/ActiveApproach.h"
#include "cockpit/ActivePlan.h"
#include "cockpit/AlarmWatch.h"
#include "cockpit/CorrectedClock.h"
#include "cockpit/ShiftedClock.h"
#include "cockpit/ShownPlan.h"
#include "cockpit/SimulatorStart.h"
#include "nav/leg/ActiveNavigation.h"
#include "nav/leg/Simulator.h"
#include "nav/leg/VerticalSpeed.h"
#include "nav/track/FlightLog.h"
#include "nav/track/TrackRecorder.h"

namespace korvel {

struct Settings;

/// The flight: the plan and what is flown of it, the simulator, track and log, approach and alarms.
/// Main thread only, but for what its parts allow.
class Flight {
 public:
    /// The period of tick(), which the simulator's faster time counts in.
    static constexpr std::int64_t kTickMs = 500;
    static constexpr int kFastestTime = 60;

    /// What it flies by; all of it outlives the flight.
    struct Foundations {
        const Clock& clock;
        NavDatabase& database;
        const UserRecordStore& userRecords;
        /// Where the flight log and the journals lie; empty: nothing of them is kept.
        std::filesystem::path folder{};
    };

    explicit Flight(const Foundations& foundations);
    Flight(const Flight&) = delete;
    Flight& operator=(const Flight&) = delete;
    /// As endSession().
    ~Flight();

    /// Completes the flight log and sets the track's journal aside, for the orderly end of the
    /// program. What then cannot be written is told by takeTrouble(). Calling it again does no
    /// harm.
    void endSession();

    ActivePlan& plan() { return plan_; }
    const ActivePlan& plan() const { return plan_; }
    /// Null without a plan; as of the last refresh().
    const std::shared_ptr<const PlanView>& shownPlan() const { return shownPlan_.view(); }
    ActiveNavigation& navigation() { return navigation_; }
    const ActiveNavigation& navigation() const { return navigation_; }
    TrackRecorder& track() { return track_; }
    const TrackRecorder& track() const { return track_; }
    /// Why plan, track or log are not kept, told once for as long as it lasts; empty for nothing to
    /// tell.
    [[nodiscard]] std::string takeTrouble();
    /// Each of them for as long as it lasts.
    [[nodiscard]] std::vector<std::string> troubles() const;
    ActiveApproach& approach() { return approach_; }
    const ActiveApproach& approach() const { return approach_; }
    /// The runways that the pilot may want to approach from there: see ActiveApproach::offered().
    [[nodiscard]] std::vector<LandingRunway> offeredApproaches(GeoPoint position);
    AlarmBoard& alarms() { return alarms_.board(); }
    const AlarmBoard& alarms() const { return alarms_.board(); }
    /// Where the flight ends, once it is what is flown to: the plan's last waypoint, or the airport
    /// of a direct leg. Null for none.
    std::shared_ptr<const DatabaseRecord> destination();
    /// Of the last seconds, up positive; nothing while it is unknown.
    std::optional<int> verticalSpeedFpm() const { return verticalSpeed_.feetPerMinute(); }
    /// The flight log; empty where none is kept.
    const std::filesystem::path& logFile() const { return logFile_; }
    /// Whole seconds since this flight began; nothing on the ground.
    std::optional<int> flightTimeSec() const;

    /// The time of day, which is the receiver's while setUtc() gives it.
    const Clock& timeOfDay() const { return timeOfDay_; }
    /// What time the receiver says it is, in seconds since 1970; nothing for the computer's.
    void setUtc(std::optional<std::int64_t> unixSeconds) { timeOfDay_.setNow(unixSeconds); }

    /// What the aircraft does comes from elsewhere from now on. Only what a `receiver` tells is a
    /// flight to be logged; with another kind of source another flight begins.
    void sourceChanged(bool receiver);
    void startSimulator(const SimulatorStart& start);
    void stopSimulator();
    Simulator& simulator() { return simulator_; }
    const Simulator& simulator() const { return simulator_; }
    /// How many times faster than time the simulator flies, 1 to kFastestTime.
    void setTimeFactor(int factor);
    int timeFactor() const { return timeFactor_; }
    /// Milliseconds of the flight's own time, which the simulator may let pass faster.
    std::int64_t tickMs() const { return clock_.tickMs(); }

    /// Takes up where the aircraft is; the tick's first step. `received` holds only values that
    /// are fresh and belong to a fix.
    void lookAround(const ActiveNavigation::Aircraft& received);
    /// What commands and the tick go by from here on; its second step.
    void prepare(const Settings& settings, const Variation& variation,
                 std::int32_t altitudeOffsetFt = 0);
    /// The half-second tick, behind lookAround() and prepare().
    void tick(const Settings& settings, const Variation& variation,
              const ActiveNavigation::Aircraft& received);
    /// Altitudes are corrected otherwise from now on: that is no climb.
    void altitudeShifted() {
        verticalSpeed_ = {};
        navigation_.restartPath();
    }
    /// Brings the shown plan up to date: after each tick and each command.
    void refresh();

 private:
    void forgetDerived();
    void beginAnew();
    void step(const Settings& settings, const Variation& variation,
              const ActiveNavigation::Aircraft& received);
    void goOnWithPlan();
    void watch(const Settings& settings, const Variation& variation);
    std::string placeHere() const;

    ShiftedClock clock_;
    CorrectedClock timeOfDay_{clock_};
    NavDatabase& database_;
    ActivePlan plan_;
    ShownPlan shownPlan_;
    Simulator simulator_;
    TrackRecorder track_;
    std::filesystem::path logFile_;
    FlightLog log_;
    ActiveNavigation navigation_;
    VerticalSpeed verticalSpeed_;
    bool fromReceiver_ = true;
    int timeFactor_ = 1;
    bool trackIsAhead_ = false;  // of the time of day, since the simulator flew faster
    ActiveApproach approach_;
    AlarmWatch alarms_;
};

}  // namespace korvel
