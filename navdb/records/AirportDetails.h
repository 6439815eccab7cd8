#pragma once

namespace korvel {

class AirportRecord;
class DatabaseFile;

/// Replaces the runways and frequencies of an airport by those that its file holds for it: none
/// when the file lacks the sub-tables.
void readAirportDetails(const DatabaseFile& file, AirportRecord& airport);

}  // namespace korvel
