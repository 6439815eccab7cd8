#pragma once

#include "config/Text.h"

namespace korvel {

/// Texts: the pilot's aircraft, its fuel, the wind, and where it can glide to.
struct AircraftTexts {
    Text command{66560, "Aircra&ft..."};
    Text commandFuel{66561, "F&uel and Wind..."};
    Text title{66562, "Aircraft"};
    Text name{66563, "Name"};
    Text cruise{66564, "Cruise speed (kt)"};
    Text climbSpeed{66565, "Climb speed (kt)"};
    Text climbRate{66566, "Climb rate (ft/min)"};
    Text descentSpeed{66567, "Descent speed (kt)"};
    Text descentRate{66568, "Descent rate (ft/min)"};
    Text burn{66569, "Fuel burnt in an hour"};
    Text usable{66570, "Usable fuel"};
    Text reserve{66571, "Reserve (minutes)"};
    Text glideRatio{66572, "Best glide ratio, to 1"};
    Text glideSpeed{66573, "Best glide speed (kt)"};
    Text tankMinutes{66710, "Other tank every (minutes; 0: no reminder)"};
    Text alarmTank{66711, "SWITCH TANK"};
    Text fuelUnit{66574, "Fuel is counted in"};
    Text litres{66575, "litres"};
    Text gallons{66576, "US gallons"};
    Text remove{66577, "No Aircraft"};
    Text hint{66578,
              "Check each figure against the aircraft's handbook: fuel, planned times, the top of "
              "descent and the gliding range are worked out from them."};
    Text fuelTitle{66579, "Fuel and Wind"};
    Text fuelOnBoard{66580, "Fuel on board now (%s)"};  ///< %s: unit
    Text fuelFull{66581, "Full"};
    Text fuelState{66582, "%s left of what was entered at %s; that lasts %s h"};
    Text fuelNone{66583, "No fuel entered"};
    Text needsAircraft{66584, "For fuel, enter the aircraft first (Options, Aircraft)."};
    Text windFrom{66585, "Wind from (degrees true); empty: as estimated"};
    Text windSpeed{66586, "Wind speed (kt)"};
    Text windEntered{66587, "WIND ENTERED"};
    Text windEstimated{66588, "WIND ESTIMATED"};
    Text windNone{66589, "No wind known: fly half a circle, and it is estimated from the tracks"};
    Text windAge{66590, "%s: %s, %d min ago"};  ///< %s: entered or estimated, %s: wind, %d: age
    Text windHalf{66591, "A wind has a direction and a speed."};
    Text reserveShort{66592, "RES %s"};  ///< %s: amount of fuel, below the reserve
    Text empty{66593, "EMPTY"};
    Text fuelAtEnd{66594, "Fuel %s"};  ///< %s: amount
    Text belowReserve{66595, "BELOW RESERVE"};
    Text alarmReserve{66596, "FUEL RESERVE"};
    Text topOfDescent{66597, "Top of descent in %d min"};
    Text planned{66598, "At %d kt"};              ///< %d: cruise speed
    Text plannedWithWind{66599, "At %d kt, %s"};  ///< %d: cruise speed, %s: wind
    Text glide{66602, "GLIDE"};
    Text fromRunway{66603, "from %s"};  ///< %s: length of a runway
    Text hard{66604, "hard"};
    Text nearestTitle{66605, "Nearest Airports"};
    Text commandNearest{66606, "Nearest: &Which..."};
    Text runwayLength{66607, "Longest runway at least"};
    Text anyLength{66608, "any length"};
    Text hardOnly{66609, "Hard surface only"};
    Text filterButton{66610, "Which..."};
    Text allAirports{66611, "all"};
    Text ageOfList{66612, "%s old"};  ///< %s: age
    Text noneLikeThat{66613, "No airport near is like that"};
    Text commandEmergency{66614, "&Emergency..."};
    Text emergency{66615, "EMERGENCY"};
    Text emergencyFly{66616, "D\u2192 %s"};  ///< %s: airport
    Text emergencyEnd{66617, "End the Emergency"};
    Text emergencyEnded{66618, "Emergency ended: what was flown before goes on"};
    Text emergencyNone{66619, "No airport is known near; emergency frequency 121.500"};
    Text emergencyFrequency{66620, "121.500 EMERGENCY"};
    Text emergencyGlide{66621, "GLIDE: arrives %s above the field"};  ///< %s: height
    Text emergencyShort{66622, "NO GLIDE: %s short in height"};       ///< %s: height
    Text emergencyUnknown{66623, "Gliding range not known"};
    Text emergencyWay{66624, "%s\u00b0  %s"};    ///< %s: bearing, %s: distance
    Text positionOld{66625, "POSITION %s OLD"};  ///< %s: age
    Text reserveRing{66627, "RESERVE"};
    Text layerEndurance{66626, "Endurance ring, to the fuel reserve"};
};

inline constexpr AircraftTexts kAircraftTexts{};

}  // namespace korvel
