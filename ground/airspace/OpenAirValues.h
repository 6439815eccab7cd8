#pragma once

#include <optional>
#include <string_view>

#include "geo/GeoPoint.h"
#include "ground/airspace/Airspace.h"

namespace korvel {

// The values of OpenAir lines, in all the ways in which they are written. What a scanner takes it
// removes from the front of the text; where it finds nothing it takes nothing.

/// Digits with or without a point; no sign, no exponent: an E behind a number is East.
std::optional<double> takeNumber(std::string_view& text);

/// Latitude, then longitude: degrees, or degrees and minutes, or degrees, minutes and seconds with
/// colons between, each followed by its letter in either case, with any blanks and a comma between
/// the two. A minute has up to 60 seconds, both ends included.
std::optional<GeoPoint> takePosition(std::string_view& text);

/// Nothing but blanks or a remark follows.
bool isRestEmpty(std::string_view text);

/// A floor or ceiling; what is not understood is Unknown.
AltitudeLimit parseLimit(std::string_view text);

}  // namespace korvel
