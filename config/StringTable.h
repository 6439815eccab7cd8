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
};

/// The text of that number.
std::string_view text(TextId id);

using TextArgument = std::variant<int, std::string_view>;

/// The text with its "%d" and "%s" replaced by the arguments in turn.
std::string formatText(TextId id, std::initializer_list<TextArgument> arguments);

}  // namespace korvel
