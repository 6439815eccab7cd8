#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

#include "geo/GeoPoint.h"
#include "geo/Units.h"

namespace korvel {

// Numbers as a pilot reads them, the same in every locale.

/// "N48°21.50'": hemisphere, degrees and minutes with `decimals` places. Carries into the next
/// degree instead of showing 60 minutes. Degrees, north positive.
std::string latitudeText(double degrees, int decimals);
/// "E011°47.17'"; east positive, any turn of the globe.
std::string longitudeText(double degrees, int decimals);
/// Both with two decimals, two spaces between them.
std::string coordinatesText(GeoPoint position);

/// A distance in the unit with its label: "65 nm"; below a hundred with one decimal unless that is
/// 0: "32.5 nm".
std::string distanceText(double nm, DistanceUnit unit);
/// The same with the decimal even if it is 0, for columns: "65.0 nm".
std::string distanceTenthsText(double nm, DistanceUnit unit);

/// "4500 ft", or in metres "1372 m" where `altUnit` is 1.
std::string altitudeText(int feet, int altUnit);

/// A course or track as three digits, 001 to 360 as they are flown; degrees of any turn.
std::string courseText(double degrees);
/// "088°M"; without the variation there, east positive, "090°T".
std::string courseText(double trueDeg, std::optional<double> variationDeg);

/// "16:21" of a second of the day; of days before and behind it the same.
std::string timeOfDayText(std::int64_t secondOfDay);

/// "12 s", from a minute on "2 min 05 s", from an hour on "1 h 02 min".
std::string ageText(int seconds);

}  // namespace korvel
