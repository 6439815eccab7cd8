#pragma once

#include "config/Text.h"

namespace korvel {

/// Texts: what the map's symbols mean.
struct LegendTexts {
    Text command{66530, "Le&gend"};
    Text title{66531, "Legend"};
    Text towerAirport{66532, "Airport with a tower and a hard runway"};
    Text hardAirport{66533, "Airport with a hard runway"};
    Text softAirport{66534, "Airfield without a hard runway"};
    Text privateAirport{66535, "Private"};
    Text seaplaneBase{66536, "Seaplane base"};
    Text heliport{66537, "Heliport"};
    Text vor{66538, "VOR"};
    Text ndb{66539, "NDB"};
    Text fix{66540, "Fix"};
    Text visualPoint{66541, "Visual reporting point"};
    Text userFix{66542, "Point that you have marked"};
    Text expired{66543, "Name in brackets: its data are out of date"};
    Text obstacleBelow{66544, "Obstacle, 1000 ft or more below"};
    Text obstacleNear{66545, "Obstacle less than 1000 ft below"};
    Text obstacleReaches{66546, "Obstacle less than 100 ft below, or higher"};
    Text airspaceB{66547, "Airspace A, B"};
    Text airspaceC{66548, "Airspace C, terminal area"};
    Text airspaceD{66549, "Airspace D, control zone"};
    Text airspaceSpecial{66550, "Restricted, prohibited, danger area"};
    Text groundDanger{66551, "Ground less than 100 ft below, or higher"};
    Text groundWarning{66552, "Ground less than 1000 ft below"};
    Text strip{66553, "Strip without an identifier of its own"};
};

inline constexpr LegendTexts kLegendTexts{};

}  // namespace korvel
