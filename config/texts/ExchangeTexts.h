#pragma once

#include "config/Text.h"

namespace korvel {

/// Texts: what is said of other programs' files.
struct ExchangeTexts {
    Text unknownFormat{66000, "This is no plan, track or list of waypoints that is known here."};
    Text tornFile{66001, "The file is torn: it does not end as it should."};
    Text fileTooLarge{66002, "The file is too large."};
    Text badCoordinate{66003, "A position in the file is no latitude and longitude."};
    Text tooManyPoints{66004, "The file has more points than can be shown."};
    Text notInTable{66005, "The route names %s, which the file does not describe."};  ///< %s: name
    Text noRoute{66006, "The file has no route."};
    Text noTrack{66007, "The file has no track."};
    Text noWaypoints{66008, "The file has no waypoints."};
    Text noSuchRoute{66009, "The file has no route with this number."};
    Text notFoundHere{66010,
                      "%s is not in the databases: the file's position is used"};  ///< %s: name
    Text liesElsewhere{
        66011,
        "%s lies %s NM away in the databases: the file's position is used"};  ///< %s: name, %s: how
                                                                              ///< far
    Text isCalled{66012, "%s is called %s here"};  ///< %s: name, %s: identifier
    Text noSuchExport{66013, "%s ends like no format that can be written"};  ///< %s: file
    Text importTitle{66020, "From Another Program"};
    Text importRoute{66021, "&Route"};
    Text importSummary{66022, "%d waypoints, %s"};  ///< %s: distance
    Text importUnchanged{66023, "Every waypoint is as in the databases."};
    Text importTake{66024, "Take the Plan"};
    Text importTrack{66025, "Show Its &Track"};
    Text importWaypoints{66026, "&Keep Its Waypoints"};
    Text imported{66027, "%s imported, not saved yet"};    ///< %s: file
    Text waypointsKept{66028, "%d waypoints kept in %s"};  ///< %s: file
    Text waypointsChanged{66029, "Of the waypoints kept:"};
    Text exportPlan{66030, "&Export Plan..."};
    Text exportTrack{66031, "Expo&rt Track..."};
    Text exportPlanTitle{66032, "Export Plan"};
    Text exportTrackTitle{66033, "Export Track"};
    Text planExportFilter{66034, "GPX (*.gpx);;Garmin (*.fpl);;X-Plane (*.fms);;KML (*.kml)"};
    Text trackExportFilter{66035, "GPX (*.gpx);;IGC (*.igc);;KML (*.kml)"};
    Text exported{66036, "%s written"};  ///< %s: file
    Text openTrackFilter{66038, "Tracks (*.trk *.gpx *.igc *.kml)"};
    Text openFilter{66037,
                    "Flight plans (*.fp *.txt *.gpx *.fpl *.fms *.flightplan *.lnmpln *.fgfp *.cup "
                    "*.xml *.kml *.igc)"};
};

inline constexpr ExchangeTexts kExchangeTexts{};

}  // namespace korvel
