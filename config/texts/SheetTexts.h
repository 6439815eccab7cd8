#pragma once

#include "config/Text.h"

namespace korvel {

/// Texts: what the sheets ask and offer.
struct SheetTexts {
    Text helpWords{
        61516,
        "Plug in the GPS receiver: Korvel Pro finds its port by itself. As soon as the receiver "
        "knows where it is, the map appears.\n\n"
        "Zoom: Z and Shift+Z, the wheel, two fingers, or In and Out\n"
        "Next page: N or Page\n"
        "Look around: drag the map; back to the aircraft: Space or Aircraft\n"
        "Flight plan: F or Plan, and again to enter a route\n"
        "Direct-to: D or Direct, or tap a place on the map, then Direct; or hold the place\n"
        "Plan: hold a leg, a waypoint or a row until it comes along, and drag it\n"
        "Alarms: Backspace or a tap takes one away\n"
        "Figures above the map: tap one to change it\n"
        "Day or night colours: C\n"
        "Measure: Shift+M, then tap or drag from one point to another\n"
        "All commands: F10 or Menu\n"
        "Full screen: F11; two taps on the map then hide the buttons\n\n"
        "\"---\" stands where a value is unknown or older than five seconds."};
    Text aboutWords{61517,
                    "Moving-map GPS navigator for pilots of light aircraft.\n\n"
                    "A backup only: never rely on it as the only means of navigation.\n\n"
                    "Letters: B612, SIL Open Font License 1.1. Window: Qt, LGPL 3.\n"
                    "Ground: GSHHG 2.3.7, P. Wessel and W. H. F. Smith, LGPL 3; GeoNames, CC BY "
                    "4.0; ETOPO5, NOAA."};
    Text portTitle{61518, "GPS Port"};
    Text portSearch{61519, "&Search all ports for the receiver"};
    Text portChosen{61520, "&Use this port and speed:"};
    Text portHint{61521, "Most receivers send at 4800, 9600 or 38400 baud."};
    Text kindAirport{61565, "airport"};
    Text kindVor{61566, "VOR"};
    Text kindNdb{61567, "NDB"};
    Text kindFix{61568, "fix"};
    Text searchHint{62501, "Identifier, name or town"};
    Text farPlace{62502,
                  "%s is %s, %s away: once more if it is meant"};  ///< %s: ident, name, how far
    Text placeRecent{62503, "recent"};
    Text placeFavourite{62504, "favourite"};
    Text placeInPlan{62505, "in the plan"};
    Text favouriteAdd{62506, "Favourite"};
    Text favouriteRemove{62507, "No favourite"};
    Text directToTitle{61570, "Direct-To"};
    Text courseHint{61571, "Course, 0 to 360 magnetic; empty for straight on"};
    Text altitudeHint{61572, "Altitude in hundreds of feet; empty for none"};
    Text routeTitle{61573, "Route"};
    Text routeHint{61574, "KBFI SEA V23 BTG KPDX@45"};
    Text routeHelp{62508,
                   "Enter the identifiers in the flight-plan separated by SPACE key.\n"
                   "You can include Victor/Jetway identifiers.\n"
                   "If airport has same identifier as nav-aid, prefix icao-code for airport."};
    Text firstWordUnclear{
        62509, "%s is the name of %d places: choose where to start"};  ///< %s: word, %d: number
    Text planStays{62510, "The plan in force stays as it is."};
    Text courseTitle{62511, "Course to a Point"};
    Text courseWanted{62512, "Course to arrive on, 0 to 360 magnetic"};
    Text pointHint{62513, "Identifier, name, or position (47.45 -122.31)"};
    Text routeSummary{61575, "%d waypoints, %d %s"};  ///< %d: entries, %d: length, %s: unit
    Text planRowTitle{61576, "Waypoint"};
    Text insertHint{61577, "Waypoints or an airway to fly before it"};
    Text flyToRow{61578, "Fly this leg"};
    Text moveRowUp{61579, "Earlier"};
    Text moveRowDown{61580, "Later"};
    Text removeRow{61581, "Remove"};
    Text setAltitude{61582, "Set altitude"};
    Text insertWords{61583, "Insert"};
    Text markTitle{61606, "Mark a User Fix"};
    Text markButton{61607, "Mark"};
    Text marksTitle{61613, "User Fixes"};
    Text marksNone{
        61614, "None yet: M marks where the aircraft is, or the middle of a map that was moved."};
    Text markOpen{61615, "Open"};
    Text markReallyRemove{61616, "Really remove?"};
    Text simulatorTitle{61702, "Simulator"};
    Text simulatorLatitude{61703, "Latitude (degrees, south −)"};
    Text simulatorLongitude{61704, "Longitude (degrees, west −)"};
    Text simulatorHeading{61705, "Heading (magnetic)"};
    Text simulatorSpeed{61706, "Speed (kt)"};
    Text simulatorAltitude{61707, "Altitude (ft)"};
    Text simulatorWindFrom{66773, "Wind from (degrees true)"};
    Text simulatorWindSpeed{66774, "Wind (kt)"};
    Text simulatorAt{66770, "Start at (identifier)"};
    Text simulatorHere{66771, "Here"};
    Text simulatorPlanStart{66772, "Plan's start"};
    Text simulatorFollows{66775, "Climb and descend to the plan's altitudes"};
    Text simulatorSteering{61708, "Steer towards the active waypoint"};
    Text simulatorTime{61709, "Time passes"};
    Text simulatorStart{61710, "Start"};
    Text simulatorStop{61711, "Stop"};
    Text simulatorHidesFix{62211,
                           "The receiver has a fix. While the simulator flies, its position is "
                           "shown in place of the aircraft's."};
    Text simulatorStartAnyway{62212, "Start all the same"};
    Text keysTitle{61797, "Keys"};
    Text portTalkers{62400, "Hear &all satellite systems, not GPS alone"};
    Text portNetwork{62401, "A receiver in the &network, such as a Wi-Fi device"};
    Text portConnect{62402, "Co&nnect"};
    Text portArrivals{62403, "%d bytes, %d sentences, the last one %d s ago"};
    Text portNoSentence{62404, "%d bytes, no sentence"};
    Text portTrace{61810, "NMEA &trace..."};
    Text traceTitle{61811, "NMEA trace"};
    Text tracePause{61812, "Pause"};
    Text fieldTitle{61814, "Field"};
    Text addToPlan{61816, "Add to plan"};
    Text showOnMap{61817, "Show on map"};
    Text placeElevation{61818, "Elevation %s"};     ///< %s: height
    Text placeVariation{61819, "Variation %d %s"};  ///< %d: degrees, %s: E or W
    Text closeSheet{61821, "Close"};
    Text cancelSheet{66401, "Cancel"};
    Text saveBox{66457, "Save"};
    Text discardBox{66458, "Discard"};
    Text openFile{66459, "Open"};
    Text fileName{66461, "Name"};
    Text fileKind{66462, "Kind"};
    Text keyPadShow{61822, "Keys"};
    Text keyPadSpace{61823, "Space"};
    Text keyPadBack{61824, "Del"};
    Text findTitle{61826, "Find a Place"};
    Text findButton{61827, "Find"};
    Text loadReportTitle{61830, "Load Report"};
    Text altimeterTitle{62126, "Altimeter"};
    Text altimeterReads{62127, "The altimeter reads (%s)"};           ///< %s: unit
    Text altimeterReceiver{62128, "The receiver says %s %s"};         ///< %s: altitude, %s: unit
    Text altimeterOffset{62129, "Altitudes are corrected by %s %s"};  ///< %s: feet, %s: unit
    Text altimeterNoAltitude{
        62130, "The receiver gives no altitude: that takes a fix in three dimensions"};
    Text altimeterRemove{62131, "No Correction"};
    Text altimeterTooFar{
        62132, "More than %d ft from what the receiver says: is the altimeter set right?"};
    Text altimeterHint{62133,
                       "An asterisk marks corrected altitudes. The correction ends with the "
                       "program: tomorrow's pressure is another."};
    Text fieldAltimeter{62134, "&Altimeter..."};
    Text approachTitle{61946, "Approach"};
    Text approachTitleAt{61947, "Approach at %s"};  ///< %s: airport
    Text approachNoRunway{
        61948,
        "No runway is known near here, and none of the destination. Fly direct to an airport "
        "first."};
    Text approachOff{61949, "Approach guidance is switched off (Options, Preferences, Approach)."};
    Text approachLeave{61952, "Leave the Approach"};
    Text approachButton{61953, "Approach"};
};

inline constexpr SheetTexts kSheetTexts{};

}  // namespace korvel
