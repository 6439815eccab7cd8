#pragma once

#include "config/Text.h"

namespace korvel {

/// Texts: what planning, flying and recording say.
struct FlightTexts {
    Text navaidOrAirwayNotFound{61259,
                                "%s navaid/airway not found or data expired!"};  ///< %s: identifier
    Text noLeadingFix{61260, "No leading fix found for %s airway!"};             ///< %s: airway
    Text noTrailingFix{61261, "No trailing fix found for %s airway!"};           ///< %s: airway
    Text airwayFixNotFound{61262, "Fix %s of %s airway not found!"};  ///< %s: fix, %s: airway
    Text fileOpenError{61300, "File Open Error"};
    Text invalidFormat{61301, "Invalid format!"};
    Text unsupportedFileType{61302, "Unsupported file-type!"};
    Text navaidNotFound{61303, "%s navaid not found!"};  ///< %s: identifier
    Text noTrackToSave{61304, "No track to save"};
    Text invalidObs{61310, "Invalid OBS!"};
    Text notFound{61311, "Not found!"};
    Text directTo{61312, "Direct to %s"};  ///< %s: name
    Text invalidAltitude{61364,
                         "Invalid altitude. Format is feet in hundreds (e.g. 1.2 = 120 ft)."};
    Text longLeg{61586, "Long leg from %s to %s: %s"};      ///< %s: from, %s: to, %s: how far
    Text sharpTurn{61587, "Sharp turn of %d\u00b0 at %s"};  ///< %d: degrees, %s: place
    Text markNameInvalid{61608, "A name has 1 to 11 letters and digits."};
    Text markNameTaken{61609, "%s is the name of another place."};  ///< %s: name
    Text markInPlan{61610, "%s is in the flight plan."};            ///< %s: name
    Text numberOutOfRange{
        61714, "%s: a number from %d to %d is wanted"};  ///< %s: what, %d: lowest, %d: highest
    Text alarmGear{61900, "CHECK GEAR"};
    Text alarmOffCourse{61901, "OFF COURSE"};
    Text alarmArriving{61902, "Arriving at %s"};          ///< %s: waypoint
    Text alarmNight{66703, "Arrival after sunset (%s)"};  ///< %s: time of day
    Text alarmNoSun{66704, "No daylight at arrival"};
    Text alarmTerrain{66103, "TERRAIN (GPS altitude)"};
    Text alarmTerrainAhead{66104, "TERRAIN AHEAD (GPS altitude)"};
    Text pluginLacksFunctions{61910,
                              "%s does not draw attitudes: it lacks a function"};  ///< %s: file
    Text fileNotWritten{61987, "Not recorded: %s cannot be written"};              ///< %s: file
    Text noFile{62260, "This is a folder or a device, not a file."};
    Text trackFromElsewhen{66400, "The dates of this track lie more than a century away"};
    Text trackRunsBack{
        62261, "Invalid format! The time in line %d is before the track's first."};  ///< %d: number
    Text trackLinesLost{62262,
                        "Lines of the recorded track that could not be read: %d"};  ///< %d: number
};

inline constexpr FlightTexts kFlightTexts{};

}  // namespace korvel
