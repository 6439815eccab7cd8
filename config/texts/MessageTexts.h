#pragma once

#include "config/Text.h"

namespace korvel {

/// Texts: what became of a command, said for a moment.
struct MessageTexts {
    Text nothingToUndo{61560, "No change to take back"};
    Text suspended{61561, "Leg changes suspended"};
    Text resumed{61562, "Leg changes resumed"};
    Text trackOn{61563, "Recording the track"};
    Text trackOff{61564, "Track recording off"};
    Text nextWaypoint{61584, "Next: %s"};           ///< %s: name
    Text nextWaypointAt{61585, "Next: %s, %d ft"};  ///< %s: name, %d: feet
    Text measureHint{61601, "Measure: tap or drag from one point to another"};
    Text measureEnded{61602, "Measuring ended"};
    Text marked{61611, "Marked %s"};  ///< %s: name
    Text markedUnsaved{61988,
                       "Marked %s for this run only: the settings cannot be saved"};  ///< %s: name
    Text nothingToMark{61612, "No position to mark"};
    Text navaidsShown{61618, "Navaids: %s"};  ///< %s: set
    Text navaidsNotRotated{61619, "Rotating navaids is off in the preferences"};
    Text hintFields{61620, "Tap a field to change it"};
    Text hintFullScreen{66491, "Tap the map twice to hide the buttons, and once for them"};
    Text noReceiverVariation{
        62210,
        "The gps receiver is not outputting magnetic-variance data. \r\nWill use data from the "
        "database."};
    Text simulatorOn{61712, "Simulator on"};
    Text simulatorOff{61713, "Simulator off"};
    Text portHasFix{61813, "Fix, %d satellites in use"};
    Text databasesLoaded{61831, "Databases loaded: %d"};  ///< %d: number
    Text planUndone{61930, "Plan change taken back"};
    Text planRedone{61931, "Plan change done again"};
    Text planReversed{61932, "Flight plan reversed"};
    Text planActivated{61933, "Flight plan activated"};
    Text planMissing{61934, "There is no flight plan"};
    Text navigationCleared{61935, "Navigation cleared"};
    Text directEnded{62271, "Direct-to ended, the flight plan goes on"};
    Text noDirect{62272, "There is no direct-to; the flight plan goes on"};
    Text noAlarm{61936, "No alarm to acknowledge"};
    Text approachBegun{61950, "Approach to runway %s at %s"};  ///< %s: runway, %s: airport
    Text approachEnded{61951, "Approach ended"};
    Text courseTo{62515, "Course %s to %s"};          ///< %s: course, %s: point
    Text addedToPlan{61983, "%s added to the plan"};  ///< %s: waypoint
};

inline constexpr MessageTexts kMessageTexts{};

}  // namespace korvel
