#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace korvel {

// Pieces of the files that are written; all the same whatever the user's locale.

/// The text with the characters that XML keeps for itself written as entities, and without those
/// that it cannot hold.
std::string xmlText(std::string_view text);
/// Radians as degrees with seven decimals: a centimetre.
std::string degreesText(double radians);
/// With that many decimals, without a "-" before a zero.
std::string numberText(double value, int decimals);
/// "2026-08-22T10:11:12Z".
std::string isoUtc(std::int64_t unixS);

}  // namespace korvel
