#include "config/StringTable.h"

#include <algorithm>
#include <array>
#include <cstddef>

#include "nav/TextNumbers.h"

namespace korvel {
namespace {

struct Row {
    TextId id;
    std::string_view text;
};

// In ascending order of the numbers.
constexpr std::array kTexts = {
    Row{TextId::AutoZoomDisabled, "Auto-zoom/view disabled for %d secs."},
    Row{TextId::AutoZoomEnabled, "Auto-zoom/view enabled"},
    Row{TextId::NoGpsSignal, "No gps signal!"},
    Row{TextId::ConnectingHelp, "Connecting to GPS...\nSelect Options.Simulator menu to test."},
    Row{TextId::PositionLost, "POSITION LOST %s"},
    Row{TextId::Simulator, "SIMULATOR"},
    Row{TextId::SimulatorHasNoSatellites, "The simulator has no satellites."},
    Row{TextId::WaitingForSatellites, "Waiting for satellite data"},
    Row{TextId::NearestAirports, "Nearest airports"},
    Row{TextId::NoAirportNear, "No airport near"},
    Row{TextId::NearestNotKnown, "Nearest airports not known yet"},
    Row{TextId::Expired, "EXPIRED"},
    Row{TextId::NoRunwayKnown, "No runway known"},
    Row{TextId::NoFlightPlan, "No flight plan: press F or open a file"},
    Row{TextId::DaySchemeName, "Default"},
    Row{TextId::NightSchemeName, "Night-Flight"},
    Row{TextId::NavaidOrAirwayNotFound, "%s navaid/airway not found or data expired!"},
    Row{TextId::NoLeadingFix, "No leading fix found for %s airway!"},
    Row{TextId::NoTrailingFix, "No trailing fix found for %s airway!"},
    Row{TextId::AirwayFixNotFound, "Fix %s of %s airway not found!"},
    Row{TextId::FileOpenError, "File Open Error"},
    Row{TextId::InvalidFormat, "Invalid format!"},
    Row{TextId::UnsupportedFileType, "Unsupported file-type!"},
    Row{TextId::NavaidNotFound, "%s navaid not found!"},
    Row{TextId::NoTrackToSave, "No track to save"},
    Row{TextId::InvalidObs, "Invalid OBS!"},
    Row{TextId::NotFound, "Not found!"},
    Row{TextId::DirectTo, "Direct to %s"},
    Row{TextId::InvalidAltitude,
        "Invalid altitude. Format is feet in hundreds (e.g. 1.2 = 120 ft)."},
    Row{TextId::ProgramName, "Korvel Pro"},
    Row{TextId::MenuFile, "&File"},
    Row{TextId::CommandQuit, "&Quit"},
    Row{TextId::MenuView, "&View"},
    Row{TextId::CommandZoomIn, "Zoom &In"},
    Row{TextId::CommandZoomOut, "Zoom &Out"},
    Row{TextId::CommandNextPage, "&Next Page"},
    Row{TextId::CommandBackToAircraft, "&Back to the Aircraft"},
    Row{TextId::CommandFullScreen, "&Full Screen"},
    Row{TextId::MenuOptions, "&Options"},
    Row{TextId::CommandNight, "&Day or Night Colours"},
    Row{TextId::MenuSchemes, "&Colour Scheme"},
    Row{TextId::CommandPort, "&GPS Port..."},
    Row{TextId::MenuHelp, "&Help"},
    Row{TextId::CommandHelp, "&Getting Started"},
    Row{TextId::CommandAbout, "&About Korvel Pro"},
    Row{TextId::HelpWords,
        "Plug in the GPS receiver: Korvel Pro finds its port by itself. As soon as the receiver "
        "knows where it is, the map appears.\n\n"
        "Zoom: Z and Shift+Z, the wheel, two fingers, or In and Out\n"
        "Next page: N or Page\n"
        "Look around: drag the map; back to the aircraft: Space or Aircraft\n"
        "Day or night colours: C\n"
        "Measure: Shift+M, then tap or drag from one point to another\n"
        "Full screen: F11; a tap on the map then hides menus and buttons\n\n"
        "\"---\" stands where a value is unknown or older than five seconds."},
    Row{TextId::AboutWords,
        "Moving-map GPS navigator for pilots of light aircraft.\n\n"
        "A backup only: never rely on it as the only means of navigation.\n\n"
        "Letters: B612, SIL Open Font License 1.1. Window: Qt, LGPL 3."},
    Row{TextId::PortTitle, "GPS Port"},
    Row{TextId::PortSearch, "&Search all ports for the receiver"},
    Row{TextId::PortChosen, "&Use this port and speed:"},
    Row{TextId::PortHint, "Most receivers send at 4800, 9600 or 38400 baud."},
    Row{TextId::LookingAround, "Map moved"},
    Row{TextId::NoDatabase, "NO CHARTS: see Help, Load Report"},
    Row{TextId::ChartsUndated, "CHARTS WITHOUT A DATE"},
    Row{TextId::ChartsExpired, "CHARTS EXPIRED %s"},
    Row{TextId::MenuRecent, "&Recent Files"},
    Row{TextId::CommandNewPlan, "&New Flight Plan"},
    Row{TextId::CommandOpenPlan, "&Open Flight Plan..."},
    Row{TextId::CommandSavePlan, "&Save Flight Plan"},
    Row{TextId::CommandSavePlanAs, "Save Flight Plan &As..."},
    Row{TextId::CommandOpenTrack, "Open &Track..."},
    Row{TextId::CommandSaveTrack, "Save T&rack As..."},
    Row{TextId::NoRecentFiles, "No recent files"},
    Row{TextId::OpenPlanTitle, "Open Flight Plan"},
    Row{TextId::SavePlanTitle, "Save Flight Plan As"},
    Row{TextId::OpenTrackTitle, "Open Track"},
    Row{TextId::SaveTrackTitle, "Save Track As"},
    Row{TextId::PlanFilter, "Flight plans (*.fp *.FP *.txt *.TXT)"},
    Row{TextId::PlanSaveFilter, "Flight plans (*.fp)"},
    Row{TextId::TrackFilter, "Tracks (*.trk *.TRK)"},
    Row{TextId::PlanSaved, "%s saved"},
    Row{TextId::AskSavePlan, "The flight plan has changed. Save it?"},
    Row{TextId::ErrorTitle, "Error"},
    Row{TextId::MenuNavigate, "&Navigate"},
    Row{TextId::CommandDirectTo, "&Direct-To..."},
    Row{TextId::CommandNearest, "Nea&rest Airports"},
    Row{TextId::CommandClearNavigation, "&Clear Navigation"},
    Row{TextId::CommandRecordTrack, "Record &Track"},
    Row{TextId::CommandSuspend, "S&uspend Leg Changes"},
    Row{TextId::CommandShowPlan, "&Flight Plan"},
    Row{TextId::CommandRoute, "&Enter Route..."},
    Row{TextId::CommandActivate, "&Activate Flight Plan"},
    Row{TextId::CommandReverse, "Re&verse Flight Plan"},
    Row{TextId::CommandUndo, "U&ndo Plan Change"},
    Row{TextId::CommandRedo, "Red&o Plan Change"},
    Row{TextId::NothingToUndo, "No change to take back"},
    Row{TextId::Suspended, "Leg changes suspended"},
    Row{TextId::Resumed, "Leg changes resumed"},
    Row{TextId::TrackOn, "Recording the track"},
    Row{TextId::TrackOff, "Track recording off"},
    Row{TextId::KindAirport, "airport"},
    Row{TextId::KindVor, "VOR"},
    Row{TextId::KindNdb, "NDB"},
    Row{TextId::KindFix, "fix"},
    Row{TextId::IdentifierHint, "Identifier"},
    Row{TextId::DirectToTitle, "Direct-To"},
    Row{TextId::CourseHint, "Course, 0 to 360 magnetic; empty for straight on"},
    Row{TextId::AltitudeHint, "Altitude in hundreds of feet; empty for none"},
    Row{TextId::RouteTitle, "Route"},
    Row{TextId::RouteHint, "KBFI V23 KPDX@45"},
    Row{TextId::RouteSummary, "%d waypoints, %d %s"},
    Row{TextId::PlanRowTitle, "Waypoint"},
    Row{TextId::InsertHint, "Waypoints or an airway to fly before it"},
    Row{TextId::FlyToRow, "Fly this leg"},
    Row{TextId::MoveRowUp, "Earlier"},
    Row{TextId::MoveRowDown, "Later"},
    Row{TextId::RemoveRow, "Remove"},
    Row{TextId::SetAltitude, "Set altitude"},
    Row{TextId::InsertWords, "Insert"},
    Row{TextId::NextWaypoint, "Next: %s"},
    Row{TextId::NextWaypointAt, "Next: %s, %d ft"},
    Row{TextId::CommandMeasure, "&Measure"},
    Row{TextId::MeasureHint, "Measure: tap or drag from one point to another"},
    Row{TextId::MeasureEnded, "Measuring ended"},
    Row{TextId::MeasureButton, "Measure"},
    Row{TextId::CommandSimulator, "&Simulator..."},
    Row{TextId::CommandSimulate, "S&imulator On"},
    Row{TextId::SimulatorTitle, "Simulator"},
    Row{TextId::SimulatorLatitude, "Latitude (degrees, south −)"},
    Row{TextId::SimulatorLongitude, "Longitude (degrees, west −)"},
    Row{TextId::SimulatorHeading, "Heading (magnetic)"},
    Row{TextId::SimulatorSpeed, "Speed (kt)"},
    Row{TextId::SimulatorAltitude, "Altitude (ft)"},
    Row{TextId::SimulatorSteering, "Steer towards the active waypoint"},
    Row{TextId::SimulatorTime, "Time passes"},
    Row{TextId::SimulatorStart, "Start"},
    Row{TextId::SimulatorStop, "Stop"},
    Row{TextId::SimulatorOn, "Simulator on"},
    Row{TextId::SimulatorOff, "Simulator off"},
    Row{TextId::NumberOutOfRange, "%s: a number from %d to %d is wanted"},
    Row{TextId::CommandPrefs, "&Preferences..."},
    Row{TextId::CommandMapOptions, "&Map..."},
    Row{TextId::CommandViewPages, "&Display Pages..."},
    Row{TextId::PrefsTitle, "Preferences"},
    Row{TextId::PrefsGeneral, "General"},
    Row{TextId::PrefsMap, "Map"},
    Row{TextId::PrefsLayers, "Layers"},
    Row{TextId::PrefsApproach, "Approach"},
    Row{TextId::PrefsIdentifiers, "Idents"},
    Row{TextId::PrefsGps, "GPS"},
    Row{TextId::PrefsLog, "Log"},
    Row{TextId::PrefsPages, "Pages"},
    Row{TextId::PrefHints, "Enable hint/help messages"},
    Row{TextId::PrefAltUnit, "Altitudes in"},
    Row{TextId::PrefGsUnit, "Speeds and distances in"},
    Row{TextId::PrefAutozoom, "Auto zoom"},
    Row{TextId::PrefAutoview, "Automatic view selection"},
    Row{TextId::PrefIcons, "Display navaids as icons"},
    Row{TextId::PrefHighNavaids, "Enable High"},
    Row{TextId::PrefVrpNavaids, "Enable VRP"},
    Row{TextId::PrefPrivateAirports, "Display Private Airports"},
    Row{TextId::PrefRotateNavaids, "Rotate Low/[High]/Term/[VRP]/Off navaids"},
    Row{TextId::PrefRotateMode1, "First navaid set"},
    Row{TextId::PrefRotateMode2, "Second navaid set"},
    Row{TextId::PrefRotateMode3, "Third navaid set"},
    Row{TextId::PrefAltMode, "Terrain colours"},
    Row{TextId::PrefMinObstacle, "Minimum obstacle height shown"},
    Row{TextId::PrefBoundaryAltitude, "Airspace boundary altitude"},
    Row{TextId::PrefMapPreference, "Map preference"},
    Row{TextId::ClassAirports, "Airports (all of them)"},
    Row{TextId::ClassNavaids, "VORs and NDBs (all of them)"},
    Row{TextId::ClassFixes, "Fixes (all of them)"},
    Row{TextId::LayerAirports, "Airport symbols"},
    Row{TextId::LabelsAirports, "Airport identifiers"},
    Row{TextId::LayerRunways, "Runways"},
    Row{TextId::LabelsRunways, "Runway numbers"},
    Row{TextId::LayerVors, "VOR symbols"},
    Row{TextId::LabelsVors, "VOR identifiers"},
    Row{TextId::LayerRoses, "Compass roses"},
    Row{TextId::LayerNdbs, "NDB symbols"},
    Row{TextId::LabelsNdbs, "NDB identifiers"},
    Row{TextId::LayerFixes, "Fix symbols"},
    Row{TextId::LabelsFixes, "Fix identifiers"},
    Row{TextId::LayerVrps, "Visual reporting points"},
    Row{TextId::LabelsVrps, "Names of visual reporting points"},
    Row{TextId::PrefApproach, "Approach guidance"},
    Row{TextId::PrefAutoApproach, "Enable Auto-Approach-Mode"},
    Row{TextId::PrefApproachSpeed, "Approach ground speed (kts)"},
    Row{TextId::PrefGearWarning, "Enable landing-gear warning"},
    Row{TextId::PrefAutoSequence, "Auto-sequence flight-plan waypts"},
    Row{TextId::PrefIcaoPrefix, "Default ICAO Prefix:"},
    Row{TextId::PrefIgnoreMagVar, "Ignore the receiver's magnetic variation"},
    Row{TextId::PrefGyroConnected, "Gyro module connected"},
    Row{TextId::PrefViaGyro, "GPS receiver connected through the gyro module"},
    Row{TextId::PrefPortGyro, "Port of the attitude module"},
    Row{TextId::PrefBaudGyro, "Its speed (baud)"},
    Row{TextId::PrefTracking, "Record the track"},
    Row{TextId::PrefLogEnable, "Enable Flight-Logs (Actv Spd)"},
    Row{TextId::PrefLogStart, "A flight starts at (kts, −1: approach speed)"},
    Row{TextId::PrefLogEnd, "A flight ends below (kts, −1: half of it)"},
    Row{TextId::UnitFeet, "feet"},
    Row{TextId::UnitMetres, "metres"},
    Row{TextId::UnitKnots, "knots, nautical miles"},
    Row{TextId::UnitMph, "miles per hour, miles"},
    Row{TextId::UnitKmh, "km/h, kilometres"},
    Row{TextId::NavaidsLow, "Low"},
    Row{TextId::NavaidsHigh, "High"},
    Row{TextId::NavaidsTerm, "Term"},
    Row{TextId::NavaidsVrp, "VRP"},
    Row{TextId::NavaidsOff, "Off"},
    Row{TextId::TerrainAbsolute, "absolute"},
    Row{TextId::TerrainRelative, "relative to the aircraft"},
    Row{TextId::PageMap, "Map"},
    Row{TextId::PageMapHsi, "Map+HSI"},
    Row{TextId::PageHsi, "HSI"},
    Row{TextId::PageEfis, "EFIS"},
    Row{TextId::PageNorthUp, "North-Up"},
    Row{TextId::PageFlightPlan, "FlightPlan"},
    Row{TextId::PageNearest, "Nearest-Airport"},
    Row{TextId::PageSatellite, "Satellite"},
    Row{TextId::CommandKeys, "&Keys"},
    Row{TextId::CommandConnected, "&What Is Connected"},
    Row{TextId::KeysTitle, "Keys"},
    Row{TextId::ConnectedTitle, "What Is Connected"},
    Row{TextId::ConnectedReceiver, "RECEIVER"},
    Row{TextId::ConnectedFix, "A fix, %d satellites in use"},
    Row{TextId::ConnectedSimulator, "The simulator flies in its place"},
    Row{TextId::ConnectedDatabases, "DATABASES: %d"},
    Row{TextId::ConnectedFolders, "YOUR OWN FILES"},
    Row{TextId::ConnectedFoldersHelp,
        "Databases (*.ng2) are looked for in these folders, in this order, when the "
        "program starts:"},
    Row{TextId::ConnectedReport, "What was loaded and refused stands in:"},
    Row{TextId::ConnectedExpiry, "valid until %s"},
    Row{TextId::ConnectedPort, "Port: %s"},
    Row{TextId::ConnectedPortSearched, "Port: searched for"},
    Row{TextId::ConnectedUndated, "undated"},
    Row{TextId::PortTrace, "NMEA &trace..."},
    Row{TextId::TraceTitle, "NMEA trace"},
    Row{TextId::TracePause, "Pause"},
    Row{TextId::PortHasFix, "Fix, %d satellites in use"},
    Row{TextId::FieldTitle, "Field"},
    Row{TextId::ChoosePlace, "Which one?"},
    Row{TextId::AddToPlan, "Add to plan"},
    Row{TextId::ShowOnMap, "Show on map"},
    Row{TextId::PlaceElevation, "Elevation %s"},
    Row{TextId::PlaceVariation, "Variation %d %s"},
    Row{TextId::RightPattern, "right pattern %s"},
    Row{TextId::CloseSheet, "Close"},
    Row{TextId::KeyPadShow, "Keys"},
    Row{TextId::KeyPadSpace, "Space"},
    Row{TextId::KeyPadBack, "Del"},
    Row{TextId::CommandFind, "Fin&d Place..."},
    Row{TextId::FindTitle, "Find a Place"},
    Row{TextId::FindButton, "Find"},
    Row{TextId::CommandReload, "&Load Databases Again"},
    Row{TextId::CommandLoadReport, "&Load Report"},
    Row{TextId::LoadReportTitle, "Load Report"},
    Row{TextId::DatabasesLoaded, "Databases loaded: %d"},
    Row{TextId::NoDatabaseHelp,
        "No database was found: the map works without places. To build one from open data, run\n"
        "  korvelctl navdb build --from ourairports --dir FOLDER -o world.ng2\n"
        "or, from X-Plane's files,\n"
        "  korvelctl navdb build --from xplane --apt apt.dat --nav nav.dat --fix fix.dat "
        "--awy awy.dat -o world.ng2\n"
        "and put it into one of the folders below."},
    Row{TextId::OldDatabaseHelp,
        "The charts are out of date: fly by current ones. The database that comes with the program "
        "is old open data, for trying out."},
    Row{TextId::LoadReportLines, "REPORT"},
    Row{TextId::NextPort, "Choose the receiver's port..."},
    Row{TextId::NextSimulator, "Fly the simulator"},
    Row{TextId::NextPlan, "Open a flight plan..."},
};
static_assert(std::ranges::is_sorted(kTexts, {}, &Row::id));

std::string argumentText(const TextArgument& argument) {
    if (const int* number = std::get_if<int>(&argument)) {
        return formatInt(*number);
    }
    return std::string(std::get<std::string_view>(argument));
}

}  // namespace

std::string_view text(TextId id) {
    const auto* row = std::ranges::lower_bound(kTexts, id, {}, &Row::id);
    return row != kTexts.end() && row->id == id ? row->text : std::string_view{};
}

std::string formatText(TextId id, std::initializer_list<TextArgument> arguments) {
    std::string result;
    std::string_view pattern = text(id);
    for (const TextArgument& argument : arguments) {
        const std::size_t place = std::min(pattern.find('%'), pattern.size());
        result += pattern.substr(0, place);
        result += argumentText(argument);
        pattern.remove_prefix(std::min(place + 2, pattern.size()));
    }
    return result += pattern;
}

}  // namespace korvel
