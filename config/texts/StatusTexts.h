#pragma once

#include "config/Text.h"

namespace korvel {

/// Texts: what the map and the pages say.
struct StatusTexts {
    Text autoZoomDisabled{61100, "Auto-zoom/view disabled for %d secs."};  ///< %d: seconds
    Text autoZoomEnabled{61101, "Auto-zoom/view enabled"};
    Text noGpsSignal{61110, "No gps signal!"};
    Text connectingHelp{61111, "Connecting to GPS...\nSelect Options.Simulator menu to test."};
    Text positionLost{61112, "POSITION LOST %s"};  ///< %s: since when
    Text simulator{61113, "SIMULATOR"};
    Text simulatorHasNoSatellites{61114, "The simulator has no satellites."};
    Text waitingForSatellites{61115, "Waiting for satellite data"};
    Text demonstration{61116, "Demonstration"};
    Text nearestAirports{61130, "Nearest airports"};
    Text noAirportNear{61131, "No airport near"};
    Text nearestNotKnown{61132, "Nearest airports not known yet"};
    Text expired{61133, "EXPIRED"};
    Text noRunwayKnown{61134, "No runway known"};
    Text noFlightPlan{61140, "No flight plan: tap here or press F to enter one"};
    Text daySchemeName{61208, "Default"};
    Text nightSchemeName{61209, "Night-Flight"};
    Text glassSchemeName{66450, "Glass"};
    Text lookingAround{61522, "Map moved"};
    Text noDatabase{61523, "NO CHARTS: see Help, Load Report"};
    Text chartsUndated{61524, "CHARTS WITHOUT A DATE"};
    Text chartsExpired{61525, "CHARTS EXPIRED %s"};  ///< %s: date, or dates and files
    Text measureButton{61603, "Measure"};
    Text rightPattern{61820, "right pattern %s"};  ///< %s: runway end
    Text noAttitudePlugin{
        61911,
        "No attitude module\nThe library of a module goes into the folder\n%s\nThe page EFIS shows "
        "what the receiver lets on of the attitude."};  ///< %s: folder
    Text terrainMissing{66100, "TERRAIN DATA MISSING"};
    Text terrainNoAltitude{66101, "NO ALTITUDE: TERRAIN NOT COLOURED"};
    Text terrainNearOnly{66102, "Terrain colours from 100 NM in"};
    Text approachShort{61940, "APPR"};
    Text glideHigh{61941, "HIGH"};
    Text glideLow{61942, "LOW"};
    Text glideOnPath{61943, "ON PATH"};
    Text glideUnknown{61944, "NO PATH"};
};

inline constexpr StatusTexts kStatusTexts{};

}  // namespace korvel
