#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/Guarded.h"
#include "geo/Variation.h"
#include "nav/plan/PlanWaypoint.h"

namespace korvel {

/// The ordered waypoints of a flight, and which of them is flown to. Whoever shares a plan keeps it
/// in a GuardedPlan.
class FlightPlan {
 public:
    /// Where the aircraft is and where it moves.
    struct Motion {
        GeoPoint position;
        double trackMag = kNoAngle;
        Variation variation{};
    };

    struct Leg {
        const PlanWaypoint* waypoint = nullptr;
        std::optional<GeoPoint> start;  ///< nothing where no waypoint has been passed
    };

    /// What the pilot wants to be at, and where.
    struct AltitudeConstraint {
        std::int32_t altitudeFt = kNoAltitudeFt;
        GeoPoint point;
        double distanceNm = 0.0;  ///< from the aircraft along the legs
    };

    FlightPlan() = default;
    explicit FlightPlan(std::vector<PlanWaypoint> entries);

    [[nodiscard]] const std::vector<PlanWaypoint>& entries() const { return entries_; }
    [[nodiscard]] double totalNm() const;
    /// Whether a waypoint with this RecordKey belongs to the plan.
    [[nodiscard]] bool contains(std::string_view recordKey) const;

    /// RecordKey of the waypoint that the last choice, or moveTo(), made the active one.
    [[nodiscard]] const std::string& currentKey() const { return currentKey_; }
    [[nodiscard]] std::optional<std::size_t> currentIndex() const { return current_; }
    /// Which entries the aircraft has come to, one bit an entry: what lies before the active one
    /// may have been left out.
    [[nodiscard]] std::vector<bool> flown() const;

    /// How many waypoints were reached since the plan is what it is.
    [[nodiscard]] int reachedCount() const { return reachedCount_; }

    /// The opposite way, altitudes staying with their places.
    void reverse();
    /// Goes on with what `former`, of which this is an edited copy, is flying to, or with what
    /// follows that in `former` when it is gone; new entries just before that come first. False,
    /// and nothing changed, when `former` flies to nothing or nothing of that is left.
    bool goOnFrom(const FlightPlan& former);
    /// Flies the plan from where the aircraft is: what was passed or skipped is so no longer.
    void activate();
    /// Makes the first waypoint with this key the active one, from the present one on if it is
    /// there. False when the plan has none.
    bool moveTo(std::string_view recordKey);
    /// Makes this entry the active one; there must be one at `index`.
    void moveToEntry(std::size_t index);

    /// The leg to fly, to be asked at every tick; nothing for an empty plan. A new or changed plan
    /// searches for the entry that lies best ahead of the aircraft; from then on an entry is flown
    /// to until it is reached: 1 NM away, or up to 3 NM when the aircraft has turned to the next
    /// one. The last entry stays the active one.
    std::optional<Leg> ChooseActiveLeg(const Motion& motion);

    /// The first altitude at or after the active entry.
    [[nodiscard]] std::optional<AltitudeConstraint> constraint(GeoPoint present) const;

 private:
    enum class State : std::uint8_t { Undecided, Ahead, Passed, Skipped };

    struct Progress {
        State state = State::Undecided;
        std::int32_t score = 0;
        bool flown = false;  ///< reached itself, while Passed may only lie before what was reached
    };

    struct Sight {
        double distanceNm = 0.0;
        int turnDeg = 0;  ///< from the track to the bearing; 0 when the track is not known
    };

    void searchSoon();
    /// The entry of that key that lies nearest to `index`, counted in entries.
    [[nodiscard]] std::optional<std::size_t> find(std::string_view recordKey,
                                                  std::size_t index) const;
    /// Of an entry with this key; the first one's that was passed, if any.
    [[nodiscard]] Progress progressOf(std::string_view recordKey) const;
    [[nodiscard]] Sight sight(std::size_t index, const Motion& motion) const;
    [[nodiscard]] bool isReached(std::size_t index, const Sight& sight, const Motion& motion) const;
    /// Examines the entries in order; nothing when none of them is to be flown to.
    std::optional<std::size_t> visit(const Motion& motion, bool searching);
    [[nodiscard]] std::size_t bestScored() const;
    /// `index` is ahead, what lies behind it too, and what lies before it is left out.
    void flyFrom(std::size_t index);
    Leg legTo(std::size_t index);

    std::vector<PlanWaypoint> entries_;
    std::vector<Progress> progress_;  ///< one for each entry
    int choicesUntilSearch_ = 1;      ///< 0: no search is due
    std::optional<std::size_t> current_;
    std::string currentKey_;
    int reachedCount_ = 0;
};

/// The active plan with its lock; empty when there is none.
using GuardedPlan = Guarded<std::optional<FlightPlan>>;

}  // namespace korvel
