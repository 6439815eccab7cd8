#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace korvel {

/// What the program was asked for when it was started.
struct CommandLine {
    std::string help;           ///< how to start it, many lines, to say and end; empty for no
    bool version = false;       ///< say which one this is and end
    std::string planFile;       ///< a flight plan to open; empty for none
    std::string profileFolder;  ///< where korvel.ini lives; empty for the usual place

    std::string replayFile;  ///< a receiver's log to fly instead of a receiver; empty for none
    bool demo = false;       ///< fly the demonstration flight
    double speed = 1;        ///< of the replay; above 0
    bool simulate = false;   ///< start the simulator at once
    int timeFactor = 1;      ///< of the simulator; 1 to 60

    std::string snapshotFile;  ///< write a picture of the window there and end; empty for none
    int width = 1280;          ///< of the window in the picture, device-independent pixels
    int height = 800;
    double afterSec = 3;  ///< seconds from the first painting to the picture

    std::string page;      ///< start on this page; empty for the remembered one
    std::string language;  ///< its tag, such as "de"; empty for the system's
    std::string scheme;    ///< colour scheme for this run; empty for the remembered one
    std::optional<int> rangeNm;
};

/// Reads the arguments, the program's name left out. Returns an error text of one line, empty on
/// success. Only the form is checked here: whether a page or a file exists shows when it is used.
[[nodiscard]] std::string parseCommandLine(std::span<const std::string_view> arguments,
                                           CommandLine& result);

}  // namespace korvel
