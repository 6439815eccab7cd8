#pragma once

#include <initializer_list>
#include <string>
#include <string_view>
#include <variant>

namespace korvel {

/// Numbers of the user-visible texts. A translation replaces the texts, never the numbers; a new
/// text gets the next free number of its group and a row in StringTable.cpp.
enum class TextId : int {
    AutoZoomDisabled = 61100,  ///< %d: seconds
    AutoZoomEnabled = 61101,
    NoGpsSignal = 61110,
    ConnectingHelp = 61111,
    PositionLost = 61112,  ///< %s: since when
    Simulator = 61113,
    SimulatorHasNoSatellites = 61114,
    WaitingForSatellites = 61115,
    NearestAirports = 61130,
    NoAirportNear = 61131,
    NearestNotKnown = 61132,
    Expired = 61133,
    NoRunwayKnown = 61134,
    NoFlightPlan = 61140,
    DaySchemeName = 61208,
    NightSchemeName = 61209,
    NavaidOrAirwayNotFound = 61259,  ///< %s: identifier
    NoLeadingFix = 61260,            ///< %s: airway
    NoTrailingFix = 61261,           ///< %s: airway
    AirwayFixNotFound = 61262,       ///< %s: fix, %s: airway
    FileOpenError = 61300,
    InvalidFormat = 61301,
    UnsupportedFileType = 61302,
    NavaidNotFound = 61303,  ///< %s: identifier
    NoTrackToSave = 61304,
    InvalidObs = 61310,
    NotFound = 61311,
    DirectTo = 61312,  ///< %s: name
    InvalidAltitude = 61364,

    // The window: menus with the letter behind "&" as their key, and help.
    ProgramName = 61500,
    MenuFile = 61501,
    CommandQuit = 61502,
    MenuView = 61503,
    CommandZoomIn = 61504,
    CommandZoomOut = 61505,
    CommandNextPage = 61506,
    CommandBackToAircraft = 61507,
    CommandFullScreen = 61508,
    MenuOptions = 61509,
    CommandNight = 61510,
    MenuSchemes = 61511,
    CommandPort = 61512,
    MenuHelp = 61513,
    CommandHelp = 61514,
    CommandAbout = 61515,
    HelpWords = 61516,
    AboutWords = 61517,
    PortTitle = 61518,
    PortSearch = 61519,
    PortChosen = 61520,
    PortHint = 61521,
    LookingAround = 61522,
    NoDatabase = 61523,
    ChartsUndated = 61524,
    ChartsExpired = 61525,  ///< %s: date
    MenuRecent = 61530,
    CommandNewPlan = 61531,
    CommandOpenPlan = 61532,
    CommandSavePlan = 61533,
    CommandSavePlanAs = 61534,
    CommandOpenTrack = 61535,
    CommandSaveTrack = 61536,
    NoRecentFiles = 61537,
    OpenPlanTitle = 61538,
    SavePlanTitle = 61539,
    OpenTrackTitle = 61540,
    SaveTrackTitle = 61541,
    PlanFilter = 61542,
    PlanSaveFilter = 61543,
    TrackFilter = 61544,
    PlanSaved = 61545,  ///< %s: file
    AskSavePlan = 61546,
    ErrorTitle = 61547,
    MenuNavigate = 61548,
    CommandDirectTo = 61549,
    CommandNearest = 61550,
    CommandClearNavigation = 61551,
    CommandRecordTrack = 61552,
    CommandSuspend = 61553,
    CommandShowPlan = 61554,
    CommandRoute = 61555,
    CommandActivate = 61556,
    CommandReverse = 61557,
    CommandUndo = 61558,
    CommandRedo = 61559,
    NothingToUndo = 61560,
    Suspended = 61561,
    Resumed = 61562,
    TrackOn = 61563,
    TrackOff = 61564,
    KindAirport = 61565,
    KindVor = 61566,
    KindNdb = 61567,
    KindFix = 61568,
    IdentifierHint = 61569,
    DirectToTitle = 61570,
    CourseHint = 61571,
    AltitudeHint = 61572,
    RouteTitle = 61573,
    RouteHint = 61574,
    RouteSummary = 61575,  ///< %d: entries, %d: length, %s: unit
    PlanRowTitle = 61576,
    InsertHint = 61577,
    FlyToRow = 61578,
    MoveRowUp = 61579,
    MoveRowDown = 61580,
    RemoveRow = 61581,
    SetAltitude = 61582,
    InsertWords = 61583,
    NextWaypoint = 61584,    ///< %s: name
    NextWaypointAt = 61585,  ///< %s: name, %d: feet
    CommandSimulator = 61700,
    CommandSimulate = 61701,
    SimulatorTitle = 61702,
    SimulatorLatitude = 61703,
    SimulatorLongitude = 61704,
    SimulatorHeading = 61705,
    SimulatorSpeed = 61706,
    SimulatorAltitude = 61707,
    SimulatorSteering = 61708,
    SimulatorTime = 61709,
    SimulatorStart = 61710,
    SimulatorStop = 61711,
    SimulatorOn = 61712,
    SimulatorOff = 61713,
    NumberOutOfRange = 61714,  ///< %s: what, %d: lowest, %d: highest
};

/// The text of that number.
std::string_view text(TextId id);

using TextArgument = std::variant<int, std::string_view>;

/// The text with its "%d" and "%s" replaced by the arguments in turn.
std::string formatText(TextId id, std::initializer_list<TextArgument> arguments);

}  // namespace korvel
