#pragma once

namespace korvel {

class Flight;
struct CockpitData;
struct Variation;

/// Fills what the pages show of the flight, and while the simulator runs what they show of the
/// aircraft. What leads somewhere stays absent without a position.
void fillFlightData(CockpitData& data, const Flight& flight, const Variation& variation);

}  // namespace korvel
