#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace korvel {

// Numbers in text, the same whatever the user's locale. Each scanner skips leading white space,
// takes the longest run of characters that can begin a number and removes what it took from
// `text`. Nothing is taken when there is no number.

/// The conversion "%d": decimal digits after an optional sign. A value outside the 32-bit range
/// becomes the nearest one that fits.
std::optional<int> scanInt(std::string_view& text);

/// The conversion "%x": hexadecimal digits after an optional sign and an optional "0x". A value
/// that needs more than 32 bits becomes the largest one; a sign negates modulo 2^32.
std::optional<unsigned> scanHex(std::string_view& text);

/// The conversion "%lf": decimal and hexadecimal numbers with an optional exponent, "inf",
/// "infinity" and "nan" in any letter case. An exponent that is begun but has no digits ("1e+") is
/// taken and counts as none. Too large a value becomes infinity, too small a one zero.
std::optional<double> scanDouble(std::string_view& text);

/// The number that begins the text, or 0 when there is none.
int ParseInt(std::string_view text);
double ParseDouble(std::string_view text);

/// "%d".
std::string formatInt(long long value);

/// "%.*lf": always a point, never a separator between thousands.
std::string formatFixed(double value, int decimals);

}  // namespace korvel
