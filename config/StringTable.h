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
    DaySchemeName = 61208,
    NightSchemeName = 61209,
};

/// The text of that number.
std::string_view text(TextId id);

using TextArgument = std::variant<int, std::string_view>;

/// The text with its "%d" and "%s" replaced by the arguments in turn.
std::string formatText(TextId id, std::initializer_list<TextArgument> arguments);

}  // namespace korvel
