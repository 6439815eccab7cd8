#pragma once

#include <memory>

#include "cockpit/PlaceSet.h"

namespace korvel {

class AirportRecord;
class NavDatabase;
struct RunwayRecord;

/// Reads a place's record and takes from it what the map shows; nothing but defaults when the
/// record can no longer be read.
std::shared_ptr<const PlaceDetails> readPlaceDetails(const NavDatabase& database,
                                                     const Place& place);

/// The longest runway; null when there is none or none has a length.
const RunwayRecord* longestRunway(const AirportRecord& airport);

/// True direction from the first end to the other one, from the ends' positions, else from their
/// headings or names and the airport's variation.
std::optional<double> runwayTrueDeg(const RunwayRecord& runway, const AirportRecord& airport);

/// Asphalt, concrete and what else bears a heavy aircraft, as databases name it ("ASPH").
bool isHardSurface(std::string_view surface);

}  // namespace korvel
