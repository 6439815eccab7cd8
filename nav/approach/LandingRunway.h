#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "geo/GeoPoint.h"

namespace korvel {

class AirportRecord;
struct RunwayRecord;

/// A runway as who lands on it sees it.
struct LandingRunway {
    std::string airportKey;  ///< RecordKey
    std::string airport;     ///< identifier
    std::string id;          ///< of the end to land on: "09L"
    GeoPoint threshold{};    ///< of the end to land on; a displaced one is not known
    GeoPoint farEnd{};
    double courseTrueDeg = 0;                   ///< of the landing
    std::optional<int> lengthFt{};              ///< of the whole runway
    std::optional<std::int32_t> thresholdFt{};  ///< elevation; the airport's where it is not known

    friend bool operator==(const LandingRunway&, const LandingRunway&) = default;
};

/// Whether the database knows where the runway begins and ends.
bool hasBothEnds(const RunwayRecord& runway);

/// The runways of an airport whose details are loaded, each from both ends, in the airport's order.
/// Those without known ends and helipads are left out: nothing can be guided to.
std::vector<LandingRunway> landingRunways(const AirportRecord& airport);

/// The glide path: this steep, over the threshold at this height. It follows the earth's surface,
/// like the altitudes of a receiver.
inline constexpr double kGlidePathDeg = 3;
inline constexpr double kThresholdHeightFt = 50;
/// How far out there is a center line and a glide path.
inline constexpr double kCenterLineNm = 10;

/// The point of the extended center line so far before the threshold.
GeoPoint onCenterLine(const LandingRunway& runway, double nm);

/// Altitude on the glide path so far before the threshold, feet; absent where the runway's
/// elevation is not known.
std::optional<int> glidePathFt(const LandingRunway& runway, double toGoNm);

/// Where an aircraft is, seen from a runway. Distances are nautical miles.
struct ApproachFigures {
    double distanceNm = 0;      ///< to the threshold
    double bearingTrueDeg = 0;  ///< to the threshold
    double toGoNm = 0;          ///< along the center line to the threshold; negative behind it
    double crossTrackNm = 0;    ///< positive left of the center line, as one lands
    /// Altitude on the glide path here, feet; absent behind the threshold, too far from it or from
    /// the center line, and where the elevation is not known.
    std::optional<int> glidePathFt;
};

ApproachFigures approachFigures(const LandingRunway& runway, GeoPoint position);

}  // namespace korvel
