#pragma once

#include <array>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "cockpit/PlaceClass.h"
#include "navdb/search/Place.h"

namespace korvel {

/// A runway whose two ends are known.
struct MapRunway {
    std::array<GeoPoint, 2> ends;
    std::array<std::string, 2> ids;  ///< "09L" at ends[0]
    double widthFt = 0;              ///< 0 when unknown
    bool hard = true;
};

/// What the map shows of a place's full record.
struct PlaceDetails {
    std::string frequency;  ///< "116.8" of a navaid; empty for none
    /// True direction of the longest runway, 0 to 360.
    std::optional<double> runwayTrueDeg;
    int longestRunwayFt = 0;  ///< 0 when unknown
    std::vector<MapRunway> runways;
    /// Magnetic variation of an airport, east positive.
    std::optional<double> variationDeg;
};

struct MapPlace {
    Place place;
    PlaceClass placeClass = PlaceClass::RouteFix;
    double rank = 0;                                ///< the higher, the more important
    std::shared_ptr<const PlaceDetails> details{};  ///< null while they have not been read
    /// Of a VOR at ranges that show its compass rose, east positive.
    std::optional<double> variationDeg{};
};

/// The places that the map draws.
struct PlaceSet {
    std::vector<MapPlace> places;  ///< the most important first
    MapPlaceOptions options;
};

}  // namespace korvel
