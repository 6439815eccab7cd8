#pragma once

#include "config/Text.h"

namespace korvel {

/// Texts: names and warnings on the instruments and in the fields, short because room is little.
/// The English names of the fields are also their names in the profile.
struct InstrumentTexts {
    Text groundSpeed{62000, "GS"};
    Text track{62001, "TRK"};
    Text bearing{62002, "BRG"};
    Text distance{62003, "DIST"};
    Text timeToGo{62004, "TTG"};
    Text altitude{62005, "ALT"};
    Text verticalSpeed{62006, "VS"};
    Text crossTrack{62007, "XTK"};
    Text desiredTrack{62008, "DTK"};
    Text eta{62009, "ETA"};
    Text waypoint{62010, "WPT"};
    Text targetAltitude{62011, "TGT ALT"};
    Text offCourse{62012, "OFF CRS"};
    Text nearestAirport{62013, "NRST"};
    Text planDistance{62014, "PLAN DIST"};
    Text planTime{62015, "PLAN TIME"};
    Text variation{62016, "VAR"};
    Text position{62017, "POS"};
    Text time{62018, "TIME"};
    Text utc{62019, "UTC"};
    Text sunrise{66701, "SUNRISE"};
    Text sunset{66702, "SUNSET"};
    Text flightTime{62020, "FLT TIME"};
    Text satellites{62021, "SAT"};
    Text requiredVerticalSpeed{62023, "VS REQ"};
    Text fuel{66600, "FUEL"};
    Text endurance{66601, "ENDUR"};  ///< to empty tanks
    Text trackMagnetic{62022, "TRK °M"};
    Text total{62030, "TOTAL"};
    Text ete{62031, "ETE"};
    Text waypoints{62032, "WAYPOINT"};
    Text totalDistance{62033, "Total %s"};  ///< %s: distance
    Text distanceToGo{62034, "To go %s"};   ///< %s: distance
    Text eteOf{62035, "ETE %s"};            ///< %s: duration
    Text etaOf{62046, "ETA %s %s"};         ///< %s: time of day, %s: of which clock
    Text localTime{62047, "LT"};            ///< beside a time of day: local time
    Text elevation{62037, "elev %s"};       ///< %s: height
    Text fromTo{62038, "%s to %s"};         ///< %s: place, %s: place
    Text backBearing{62039, "back %s"};     ///< %s: bearing
    Text noTrack{62040, "NO TRACK"};
    Text noWaypoint{62041, "NO WPT"};
    Text noAttitude{62042, "NO ATTITUDE"};
    Text noGroundSpeed{62043, "NO GS"};
    Text noAltitude{62044, "NO ALT"};
    Text gpsDerived{62045, "GPS-DERIVED"};
    Text noFix{62050, "No fix"};
    Text fix2D{62051, "2D fix"};
    Text fix3D{62052, "3D fix"};
    Text fix{62055, "Fix"};                              ///< of dimensions that are not known
    Text fixWithOneSatellite{62053, "%s, 1 satellite"};  ///< %s: fix
    Text fixWithSatellites{62054, "%s, %d satellites"};  ///< %s: fix, %d: number
    Text satelliteUsed{62405, "in use"};
    Text satelliteNotUsed{62406, "not in use"};
    Text nextWaypoints{66463, "NEXT"};
    Text touchMenu{66451, "Menu"};
    Text touchPage{62060, "Page"};
    Text touchDirect{62061, "Direct"};
    Text touchNear{62062, "Near"};
    Text touchPlan{62063, "Plan"};
    Text touchAircraft{62064, "Aircraft"};
    Text touchOut{62065, "Out"};
    Text touchIn{62066, "In"};
};

inline constexpr InstrumentTexts kInstrumentTexts{};

}  // namespace korvel
