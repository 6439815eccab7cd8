#pragma once

#include "config/Text.h"

namespace korvel {

/// Texts: what is said of what stands on the ground and lies above it.
struct GroundTexts {
    Text obstacle{66480, "top %s, %s above ground"};  ///< %s: height above sea, %s: its own
    Text lit{66311, "lit"};
    Text unverified{66312, "unverified"};
    Text unnamedObstacle{66313, "Obstacle"};
    Text mapFull{66360, "MAP: ALL"};
    Text mapMedium{66361, "MAP: NO NAVAIDS, FIXES, OBSTACLES"};
    Text mapPlain{66362, "MAP: LAND AND PLAN ALONE"};
    Text inAirspace{66340, "AIRSPACE %s"};               ///< %s: class, name, limits
    Text airspaceAhead{66341, "Airspace in %d s: %s"};   ///< %s: the same
    Text airspaceOver{66351, "Airspace %s above: %s"};   ///< %s: height, the same
    Text airspaceUnder{66352, "Airspace %s below: %s"};  ///< %s: height, the same
    Text heightUnknown{66342, "height unknown"};
    Text airspaces{66343, "Airspaces"};
    Text inside{66344, "INSIDE"};
    Text ahead{66345, "AHEAD"};
    Text above{66346, "ABOVE"};
    Text below{66347, "BELOW"};
    Text noAirspaces{66348, "No airspaces are loaded: put OpenAir files into the documents folder"};
    Text noAirspaceNear{66349, "No airspace is near"};
    Text inSeconds{66350, "in %d s"};
    Text commandImport{66510, "Import &Ground Files..."};
    Text importTitle{66511, "Ground Files"};
    Text importFilter{66512,
                      "Maps, heights, airspaces, obstacles (*.map *.hgt *.zip *.gz *.txt *.air "
                      "*.openair *.csv *.dat);;All files (*)"};
    Text importing{66513, "Looking through %s"};  ///< %s: file
    Text baseMap{66514, "base map of the Earth"};
    Text heights{66515, "heights, %d × %d posts"};
    Text airspaceCount{66516, "%d airspaces"};
    Text obstacleCount{66517, "%d obstacles"};
    Text boxFromTo{66518, "%s to %s"};  ///< %s: south-west and north-east corner
    Text dataOf{66519, "data of %s"};   ///< %s: date
    Text fileOf{66520, "file of %s"};   ///< %s: date
    Text rowsLeftOut{66521, "faulty, left out: %d (the load report tells which)"};
    Text replaced{66522, "takes the place of a file of that name"};
    Text fileLeftOut{66523, "%s\n  NOT TAKEN: %s"};  ///< %s: file, why
    Text unknownFile{66524, "no kind of ground file that is known here"};
    Text tooLarge{66525, "too large"};
    Text notReached{66526, "Stopped: %d files were not looked at."};
    Text descent{66410, "Descent %s"};  ///< %s: distance
    Text descentNow{66411, "Descend now"};
    Text alongTrack{66412, "ALONG THE TRACK"};
    Text noProfile{66413, "No track and no plan: no way to show the ground along"};
};

inline constexpr GroundTexts kGroundTexts{};

}  // namespace korvel
