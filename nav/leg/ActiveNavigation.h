#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "base/Guarded.h"
#include "nav/leg/NavigationState.h"
#include "nav/leg/Simulator.h"
#include "nav/plan/FlightPlan.h"
#include "nav/track/FlightLog.h"
#include "platform/Clock.h"

namespace korvel {

class GeneratedFixes;
class NavDatabase;
class TrackRecorder;

/// Flies the active plan or a direct leg: once per tick it makes bearing, distance, cross-track and
/// descent path out of the position. User-interface thread only; the state may be copied from any.
///
/// Locks: the plan's, then the navigation lock around the state, then the recorder's; none is held
/// while another one is taken.
class ActiveNavigation {
 public:
    /// All of it must outlive the navigation.
    struct Parts {
        const Clock& clock;
        NavDatabase& database;
        const GeneratedFixes& fixes;
        GuardedPlan& plan;
        Simulator& simulator;
        TrackRecorder& track;
        FlightLog& log;
    };

    /// What the receiver tells belongs to a fix.
    using Aircraft = korvel::Aircraft;

    struct Options {
        Variation variation{};
        std::int32_t altitudeOffsetFt = 0;  ///< of the altimeter, for what the simulator flies
        bool tracking = false;
        bool logging = true;  ///< it is a receiver that tells where the aircraft is
        bool recordingAllowed = true;
        FlightLog::Options log{};
    };

    /// What is flown, to be gone back to.
    struct Flown {
        NavigationState state;
        bool direct = false;                           ///< as directLeg()
        std::shared_ptr<const DatabaseRecord> record;  ///< as directRecord()
    };

    explicit ActiveNavigation(const Parts& parts) : parts_(parts) {}

    /// In force from the next call on.
    void setOptions(const Options& options) { options_ = options; }
    /// While it is on, the leg stays as it is and no track is recorded.
    void setSuspended(bool on) { suspended_ = on; }
    [[nodiscard]] bool suspended() const { return suspended_; }
    /// Whether the track is recorded while the position is known.
    [[nodiscard]] bool records() const {
        return options_.tracking && options_.recordingAllowed && !suspended_;
    }

    /// Takes up where the aircraft is, so that commands before the tick know it.
    void lookAround(const Aircraft& received);
    /// The tick. While the simulator runs, `received` does not count.
    void NavUpdate(const Aircraft& received);
    /// Chooses the leg and brings the descent path up to date.
    void UpdateActiveLeg();

    /// To be called when another plan has come into force: what was flown before ends.
    void planChanged();

    /// Flies from here straight to a place, or, with a course ("0" to "360", magnetic; empty for
    /// none), onto that course to it. `altitudeFt` is what is wanted there. Of several places with
    /// the identifier the one nearest to `where` is meant, else the nearest one. Returns the text
    /// to show, which is not only an error.
    std::string DirectTo(std::string_view identifier, std::string_view obsText,
                         std::int32_t altitudeFt = kNoAltitudeFt,
                         std::optional<GeoPoint> where = std::nullopt);
    /// Flies to a point so as to arrive on a course (0 to 360). Empty, or why not.
    std::string GoToWithCourse(GeoPoint point, double courseMag, std::string_view name);
    void ClearNavigation();
    [[nodiscard]] Flown flown() const { return {state(), direct_, directRecord_}; }
    /// Goes back to it, from where the aircraft is now.
    void flyAgain(const Flown& flown);
    /// Altitudes are corrected otherwise from now on: the descent path begins anew with the next
    /// one.
    void restartPath() { pathRestarts_ = true; }

    [[nodiscard]] NavigationState state() const { return *state_.lock(); }
    [[nodiscard]] bool directLeg() const { return direct_; }
    /// What the direct leg leads to; null without one, and for a point without a record.
    [[nodiscard]] const std::shared_ptr<const DatabaseRecord>& directRecord() const {
        return directRecord_;
    }
    [[nodiscard]] const WaypointAnnouncement& announcement() const { return announcement_; }
    /// Whether the simulator supplies the position.
    [[nodiscard]] bool simulated() const { return parts_.simulator.isActive(); }
    /// The simulated position while the simulator runs, else the receiver's.
    [[nodiscard]] const Aircraft& present() const { return present_; }

 private:
    /// What the plan says to a tick, copied out of its lock.
    struct Choice {
        std::shared_ptr<const DatabaseRecord> record;
        std::optional<GeoPoint> start;
        std::optional<FlightPlan::AltitudeConstraint> constraint;
    };

    [[nodiscard]] double trackMag() const;
    bool planTakesOver();
    std::optional<Choice> choose();
    void flyTo(const Choice& choice);
    void takeUpPath();
    void updatePath(NavigationState& state, const Choice& choice) const;
    [[nodiscard]] std::int32_t altitudeAt(const NavigationState& state, GeoPoint waypoint) const;
    void updateValues();
    void leadSimulator();
    void recordTrack(std::int64_t nowMs);
    void announce(const NavigationState& state);

    Parts parts_;
    Options options_;
    bool suspended_ = false;
    bool direct_ = false;
    bool wasSimulated_ = false;
    bool pathRestarts_ = false;
    std::int32_t lastAltitudeFt_ = 0;  ///< the track has no sign for an altitude that is unknown
    Aircraft present_;
    std::int64_t lastPositionMs_ = 0;  ///< tick at which the track last had a position
    std::shared_ptr<const DatabaseRecord> directRecord_;  ///< null for a point without a record
    Guarded<NavigationState> state_;
    WaypointAnnouncement announcement_;
};

}  // namespace korvel
