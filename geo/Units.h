#pragma once

#include <cstdint>
#include <string_view>

namespace korvel {

// Distances are held in nautical miles, speeds in knots, altitudes in feet; these are the ways
// out. The factors are the published definitions, as exact as they are written.

inline constexpr double kStatuteMilesPerNm = 1.1507794;
inline constexpr double kKilometresPerNm = 1.852;
inline constexpr double kNmPerKilometre = 0.5399568;  ///< also km/h to knots
inline constexpr double kMetresPerFoot = 0.3048;
inline constexpr double kFeetPerMetre = 3.280839895013123;
/// What metres of GGA and of user databases are taken times: their last digit decides how a height
/// is cut or rounded to whole feet.
inline constexpr double kGgaFeetPerMetre = 3.2808398950131235;
inline constexpr double kUserFeetPerMetre = 3.2808399;
inline constexpr double kFeetPerNm = 6076.115485564304;
/// Half a degree in radians: the cosine of the mean of two latitudes given in degrees is
/// cos((latA + latB) * this).
inline constexpr double kHalfDegreeInRadians = 0.008726646259971648;

/// Altitudes and elevations beyond these are nobody's: a receiver without a fix or a slip of the
/// pen. What gives them counts as giving none.
inline constexpr int kLowestAltitudeFt = -2000;
inline constexpr int kHighestAltitudeFt = 100000;
constexpr bool isAltitude(int feet) {
    return feet >= kLowestAltitudeFt && feet <= kHighestAltitudeFt;
}

struct UnitLabels {
    std::string_view distance;
    std::string_view speed;
};

/// In which distances and speeds are shown.
enum class DistanceUnit : std::uint8_t { NauticalMiles, StatuteMiles, Kilometres };

/// The unit by its number in the settings: 1 statute miles, 2 kilometres, anything else nautical
/// miles.
constexpr DistanceUnit distanceUnitOf(int number) {
    if (number == 1)
        return DistanceUnit::StatuteMiles;
    return number == 2 ? DistanceUnit::Kilometres : DistanceUnit::NauticalMiles;
}

/// Nautical miles (or knots) in the unit, and its labels when the caller asks for them.
double ConvertDistance(double nm, DistanceUnit unit, UnitLabels* labels = nullptr);

}  // namespace korvel
