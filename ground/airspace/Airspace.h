#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "geo/GeoPoint.h"

namespace korvel {

/// From where a floor or ceiling counts.
enum class LimitReference : std::uint8_t {
    Msl,
    Agl,  ///< above ground; 0 ft is the surface
    FlightLevel,
    Unlimited,
    Unknown,  ///< "NOTAM" and the like: the words are all there is
};

struct AltitudeLimit {
    std::string text;       ///< as it stands in the file
    std::optional<int> ft;  ///< of a flight level its hundreds of feet; none without a number
    LimitReference reference = LimitReference::Unknown;
};

/// A limit in the few letters that the map has room for: "45" (hundreds of feet above sea),
/// "10 AGL", "GND", "FL95", "UNL"; the file's own words where it is not known.
std::string limitWords(const AltitudeLimit& limit);

/// Degrees; west is east of `east` where the box crosses the 180th meridian.
struct AirspaceBox {
    double south = 0;
    double west = 0;
    double north = 0;
    double east = 0;
};

/// A closed line without its first point again at the end. Longitudes go on beyond pi where it
/// crosses the 180th meridian.
using AirspaceRing = std::vector<GeoPoint>;

/// One airspace as its file describes it.
struct Airspace {
    std::string name;           ///< UTF-8
    std::string airspaceClass;  ///< the file's own word: "D", "CTR", "R"
    std::string type;           ///< that of later dialects; empty for none
    std::string frequency;      ///< empty for none
    AltitudeLimit floor;
    AltitudeLimit ceiling;
    int line = 0;                     ///< of the file, where it begins
    std::vector<AirspaceRing> rings;  ///< one, or the several circles under one name

    [[nodiscard]] std::size_t points() const;
    [[nodiscard]] AirspaceBox box() const;
    /// Square nautical miles on the sphere; a ring inside another one counts with it.
    [[nodiscard]] double areaNm2() const;
    [[nodiscard]] bool contains(GeoPoint point) const;
    /// Whether the altitude lies between floor and ceiling; `groundFt` is the height below, where
    /// it is known. What is not known errs to the safe side: a floor is the ground, a ceiling
    /// endless.
    [[nodiscard]] bool reaches(int altitudeFt, std::optional<int> groundFt) const;
    /// Feet above sea for sorting and drawing: the lowest or highest there is where unknown.
    [[nodiscard]] int floorFt(std::optional<int> groundFt) const;
    [[nodiscard]] int ceilingFt(std::optional<int> groundFt) const;
};

/// "GND / 25": both of them.
std::string limitWords(const Airspace& airspace);

}  // namespace korvel
