#pragma once

#include "cockpit/Charts.h"
#include "cockpit/CockpitData.h"
#include "cockpit/Flight.h"
#include "cockpit/FlightData.h"
#include "config/Settings.h"

namespace korvel {

/// Databases and a flight by them, as the document has them.
struct FlightByCharts {
    explicit FlightByCharts(const Clock& clock, const std::filesystem::path& folder = {})
        : charts(clock, folder), flight({clock, charts.database(), charts.userRecords(), folder}) {}

    /// What the pages show after a tick there.
    CockpitData tick(const ActiveNavigation::Aircraft& aircraft, const Settings& settings, const Variation& variation) {
        flight.lookAround(aircraft);
        flight.prepare(settings, variation);
        flight.tick(settings, variation, aircraft);
        flight.refresh();
        CockpitData data;
        if (IsValid(aircraft.position)) data.position = aircraft.position;
        fillFlightData(data, flight, variation);
        return data;
    }

    Charts charts;
    Flight flight;
};

}  // namespace korvel
