#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "cockpit/AirspaceView.h"
#include "cockpit/NearAirport.h"
#include "cockpit/PlanView.h"
#include "cockpit/TrafficView.h"
#include "config/AircraftProfile.h"
#include "config/NearestFilter.h"
#include "geo/GeoPoint.h"
#include "geo/Units.h"
#include "nav/aircraft/Wind.h"
#include "nav/alarms/AlarmBoard.h"
#include "nav/approach/LandingRunway.h"
#include "nav/track/Track.h"
#include "platform/Clock.h"
#include "receiver/Satellite.h"
#include "receiver/SentenceSource.h"

namespace korvel {

/// The runway that is approached.
struct ApproachView {
    LandingRunway runway;
    double toGoNm = 0;  ///< along the center line; negative behind the threshold

    friend bool operator==(const ApproachView&, const ApproachView&) = default;
};

/// The wind that the aircraft flies in, as the pilot or its turns have told it.
struct WindView {
    Wind wind;
    bool entered = false;  ///< by the pilot; else estimated
    int ageMin = 0;        ///< since it was entered, or since the last turn

    friend bool operator==(const WindView&, const WindView&) = default;
};

/// Everything the pages show, taken from the document once per redraw. A value that is absent is
/// unknown or too old to be trusted and is shown as "---"; painters never look behind it.
struct CockpitData {
    std::optional<GeoPoint> position;  ///< live position: fresh, with a fix
    /// Where the aircraft was when the fix was last good; the map may stay there but says so.
    std::optional<GeoPoint> lastPosition;
    std::optional<int> positionAgeSec;  ///< age of lastPosition in whole seconds
    std::optional<double> groundSpeedKt;
    std::optional<double> trackMagDeg;   ///< 0 to 360, magnetic
    std::optional<double> trackTrueDeg;  ///< 0 to 360, true
    std::optional<int> altitudeFt;
    std::optional<int> altimeterOffsetFt;  ///< in altitudeFt; absent when none is set
    std::optional<int> verticalSpeedFpm;   ///< from the altitudes of the last seconds; up positive
    std::optional<double> variationDeg;    ///< where the aircraft is, east positive

    // What DerivedAttitude makes of the motion over the ground.
    std::optional<double> turnRateDegPerSec;  ///< to the right positive
    std::optional<double> bankDeg;            ///< to the right positive
    std::optional<double> pitchDeg;           ///< of the flight path, up positive
    bool attitudeMeasured = false;            ///< bank and pitch are the receiver's own instead

    // The leg that is flown. All of it is absent while there is no waypoint or no position.
    std::string activeKey;   ///< RecordKey; empty for none or for a point without a record
    std::string activeName;  ///< empty when nothing is flown to
    std::optional<GeoPoint> activeWaypoint;
    std::optional<GeoPoint> legStart;
    std::optional<double> bearingMagDeg;  ///< to the waypoint
    std::optional<double> distanceNm;     ///< to the waypoint
    std::optional<double> crossTrackNm;   ///< positive when the aircraft is left of the course
    std::optional<double> desiredTrackTrueDeg;
    std::optional<double> desiredTrackMagDeg;
    std::optional<double> obsCourseMagDeg;  ///< set by the pilot with direct-to
    std::optional<double> offCourseDeg;     ///< seen from the waypoint; positive like crossTrackNm
    std::optional<int> targetAltitudeFt;  ///< wanted at the end of the descent path; on an approach
                                          ///< the glide path's here
    std::optional<int> pathAltitudeFt;    ///< of the descent path at the active waypoint
    /// To be at pathAltitudeFt when the waypoint is reached at this speed; up positive.
    std::optional<int> requiredVerticalSpeedFpm;
    bool directLeg = false;    ///< direct-to or a course to a point, not the plan's
    double fullScaleNm = 5.0;  ///< cross-track at the HSI's outermost mark

    /// While a runway is approached the leg's values above lead to it.
    std::optional<ApproachView> approach;

    /// Where the leg's values lead to.
    [[nodiscard]] std::optional<GeoPoint> flownTo() const {
        return approach ? approach->runway.threshold : activeWaypoint;
    }

    /// Above sea by the receiver alone, feet; absent without a fix in three dimensions.
    [[nodiscard]] std::optional<int> seaAltitudeFt() const {
        if (!position || !altitudeFt || !(fix3D || simulated))
            return std::nullopt;
        return *altitudeFt - altimeterOffsetFt.value_or(0);
    }

    std::optional<AircraftProfile> aircraft;  ///< absent until the pilot has entered one
    std::optional<double> fuelLeft;  ///< in the aircraft's unit; absent unless fuel was entered
    std::optional<int> fuelAgeMin;   ///< since it was entered
    std::optional<WindView> wind;
    bool enduranceRing = false;  ///< the map is to show how far the fuel lasts

    /// Null when there is no plan.
    std::shared_ptr<const PlanView> plan;
    /// Null when there is none; `trackSlots` tells painters and comparisons that it has grown.
    std::shared_ptr<const Track> track;
    std::size_t trackSlots = 0;
    /// Nearest first; null until they are wanted or when there is no position.
    std::shared_ptr<const std::vector<NearAirport>> nearAirports;
    /// The last list after the position was lost, with distances as of then; null while there is a
    /// position.
    std::shared_ptr<const std::vector<NearAirport>> formerNearAirports;
    NearestFilter nearestFilter;  ///< of both
    bool emergency = false;       ///< a field is flown to that was chosen in an emergency

    /// The list that is to be shown, old or new; null for none.
    [[nodiscard]] const std::shared_ptr<const std::vector<NearAirport>>& shownNearAirports() const {
        return nearAirports ? nearAirports : formerNearAirports;
    }
    /// Other aircraft; null for none.
    std::shared_ptr<const TrafficList> traffic;
    /// Null while no airspaces are loaded or there is no position.
    std::shared_ptr<const AirspaceList> airspaces;
    /// What needs the pilot's attention, most urgent first.
    std::vector<ShownAlarm> alarms;

    bool simulated = false;  ///< the position comes from the simulator
    /// Whose lines are heard, or would be but for the simulator.
    SourceKind source = SourceKind::Receiver;
    bool sourceEnded = false;  ///< it has nothing more to bring
    bool suspended = false;    ///< legs do not change by themselves
    bool recording = false;    ///< the track is recorded as soon as there is a position
    /// Connection status for the pilot, lines separated by "\n"; empty while the receiver has a
    /// fix.
    std::string status;
    /// Bytes arrive from a receiver, with a fix or without. While none do, the status screen tells
    /// how to go on without one.
    bool receiverActive = false;
    /// A passing message ("Auto-zoom/view disabled for 30 secs."); empty for none.
    std::string message;

    /// What the pilot must know about the charts at all times ("CHARTS EXPIRED 2013-05-02"), shown
    /// at the map's edge; empty for nothing.
    std::string databaseNotice;

    int fixQuality = 0;
    bool fix3D = false;  ///< as far as is known
    bool fix2D = false;  ///< there is a fix, whose altitude is a guess and absent
    int satsInUse = 0;
    /// Satellites in view, by system and number.
    std::vector<Satellite> satellites;

    // By the receiver's clock while it tells the time, else by the computer's.
    LocalTime now;
    [[nodiscard]] int secondOfDay() const { return (now.hour * 60 + now.minute) * 60 + now.second; }
    std::optional<int> utcSecondOfDay;
    /// Of this day where the aircraft is, by the same clock as `now`; absent where it does neither.
    std::optional<int> sunriseSecondOfDay;
    std::optional<int> sunsetSecondOfDay;
    std::optional<int> flightTimeSec;                         ///< since the start of this flight
    int altUnit = 0;                                          ///< 0 feet, 1 metres
    DistanceUnit distanceUnit = DistanceUnit::NauticalMiles;  ///< of speeds as well

    friend bool operator==(const CockpitData&, const CockpitData&) = default;
};

}  // namespace korvel
