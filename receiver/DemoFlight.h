#pragma once

#include <string>

namespace korvel {

/// The log of a made-up receiver on a round trip over Puget Sound: off from Seattle, by Olympia,
/// Bremerton, Port Townsend and Everett, and back to where it began, at one burst a second with
/// satellites. It serves to try the program out where no receiver is at hand.
std::string makeDemoFlightLog();

}  // namespace korvel
