#pragma once

#include "config/Text.h"

namespace korvel {

/// Texts: the sheets of preferences: pages, rows and choices.
struct PreferenceTexts {
    Text prefsTitle{61718, "Preferences"};
    Text prefsGeneral{61719, "General"};
    Text prefsMap{61720, "Map"};
    Text prefsLayers{61721, "Layers"};
    Text prefsApproach{61722, "Approach"};
    Text prefsIdentifiers{61723, "Idents"};
    Text prefsGps{61724, "GPS"};
    Text prefsLog{61725, "Log"};
    Text prefsPages{61726, "Pages"};
    Text prefHints{61727, "Enable hint/help messages"};
    Text prefScheme{66456, "Colours"};
    Text prefAltUnit{61728, "Altitudes in"};
    Text prefGsUnit{61729, "Speeds and distances in"};
    Text prefAutozoom{61730, "Auto zoom"};
    Text prefAutoview{61731, "Automatic view selection"};
    Text prefIcons{61732, "Display navaids as icons"};
    Text prefHighNavaids{61733, "Enable High"};
    Text prefVrpNavaids{61734, "Enable VRP"};
    Text prefPrivateAirports{61735, "Display Private Airports"};
    Text prefRotateNavaids{61736, "Rotate Low/[High]/Term/[VRP]/Off navaids"};
    Text prefRotateMode1{61737, "First navaid set"};
    Text prefRotateMode2{61738, "Second navaid set"};
    Text prefRotateMode3{61739, "Third navaid set"};
    Text prefAltMode{61740, "Terrain colours (with terrain data)"};
    Text prefMinObstacle{61741, "Minimum obstacle height shown (with obstacle data)"};
    Text prefBoundaryAltitude{66331, "Airspaces within so many feet of the aircraft (0: all)"};
    Text prefMapPreference{61743, "Map preference (with topographic maps)"};
    Text classAirports{61744, "Airports (all of them)"};
    Text classNavaids{61745, "VORs and NDBs (all of them)"};
    Text classFixes{61746, "Fixes (all of them)"};
    Text layerAirports{61747, "Airport symbols"};
    Text labelsAirports{61748, "Airport identifiers"};
    Text layerRunways{61749, "Runways"};
    Text labelsRunways{61750, "Runway numbers"};
    Text layerVors{61751, "VOR symbols"};
    Text labelsVors{61752, "VOR identifiers"};
    Text layerRoses{61753, "Compass roses of the VORs in use"};
    Text layerNdbs{61754, "NDB symbols"};
    Text labelsNdbs{61755, "NDB identifiers"};
    Text layerFixes{61756, "Fix symbols"};
    Text labelsFixes{61757, "Fix identifiers"};
    Text layerVrps{61758, "Visual reporting points"};
    Text labelsVrps{61759, "Names of visual reporting points"};
    Text layerAirspaces{66320, "Airspaces"};
    Text labelsAirspaces{66321, "Floors and ceilings of airspaces"};
    Text layerBaseMap{66322, "Land and water"};
    Text labelsTowns{66323, "Towns"};
    Text layerTerrain{66324, "Heights of the ground, obstacles"};
    Text labelsObstacles{66325, "Heights of obstacles"};
    Text hideRivers{66326, "Without rivers"};
    Text hideBorders{66327, "Without borders"};
    Text hideTowns{66328, "Without towns"};
    Text hideRelief{66329, "Without relief"};
    Text hideObstacles{66330, "Without obstacles"};
    Text layerProfile{66415, "Profile of the way ahead under the map"};
    Text prefApproach{61760, "Approach guidance"};
    Text prefAutoApproach{61761, "Enable Auto-Approach-Mode"};
    Text prefApproachSpeed{61762, "Approach ground speed (kts)"};
    Text prefGearWarning{61763, "Enable landing-gear warning"};
    Text prefAutoSequence{61764, "Auto-sequence flight-plan waypts"};
    Text prefIcaoPrefix{61765, "Default ICAO Prefix:"};
    Text prefIgnoreMagVar{61766, "Ignore the receiver's magnetic variation"};
    Text prefGyroConnected{61767, "Gyro module connected"};
    Text prefViaGyro{61768, "GPS receiver connected through the gyro module"};
    Text prefPortGyro{61769, "Port of the attitude module"};
    Text prefBaudGyro{61770, "Its speed (baud)"};
    Text prefTracking{61771, "Record the track"};
    Text prefLogEnable{61772, "Enable Flight-Logs (Actv Spd)"};
    Text logRecorded{62516, "Flight time will be recorded to<BR><B>korvel-log.txt</B> file."};
    Text prefLogStart{61773, "A flight starts at (kts, −1: approach speed)"};
    Text prefLogEnd{61774, "A flight ends below (kts, −1: half of it)"};
    Text unitFeet{61775, "feet"};
    Text unitMetres{61776, "metres"};
    Text unitKnots{61777, "knots, nautical miles"};
    Text unitMph{61778, "miles per hour, miles"};
    Text unitKmh{61779, "km/h, kilometres"};
    Text navaidsLow{61780, "Low"};
    Text navaidsHigh{61781, "High"};
    Text navaidsTerm{61782, "Term"};
    Text navaidsVrp{61783, "VRP"};
    Text navaidsOff{61784, "Off"};
    Text terrainAbsolute{61785, "absolute"};
    Text terrainRelative{61786, "relative to the aircraft"};
    Text pageMap{61787, "Map"};
    Text pageMapHsi{61788, "Map+HSI"};
    Text pageHsi{61789, "HSI"};
    Text pageEfis{61790, "EFIS"};
    Text pageNorthUp{61791, "North-Up"};
    Text pageFlightPlan{61792, "FlightPlan"};
    Text pageNearest{61793, "Nearest-Airport"};
    Text pageSatellite{61794, "Satellite"};
    Text pageAttitude{61912, "Attitude"};
    Text pageAirspace{66332, "Airspace"};
    Text pageProfile{66414, "Profile"};
    Text pagesHelp{
        61922,
        "Next Page goes through the pages that are chosen here; while there are fewer than two, "
        "through all."};
    Text searchPrefs{66705, "Search the settings"};
    Text noSuchPref{66706, "No setting is called that."};
};

inline constexpr PreferenceTexts kPreferenceTexts{};

}  // namespace korvel
