#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "config/AircraftProfile.h"
#include "config/Text.h"
#include "nav/aircraft/Wind.h"

namespace korvel {

struct CockpitData;

/// What the pilot types of the aircraft.
struct AircraftForm {
    std::string name;
    FuelUnit fuelUnit = FuelUnit::Litres;
    std::vector<std::string> numbers;  ///< in the order of aircraftNumbers()

    static AircraftForm of(const AircraftProfile& aircraft);
    /// The message for the pilot names the first number that will not do, and `aircraft` is then as
    /// it was; empty on success.
    [[nodiscard]] std::string read(AircraftProfile& aircraft) const;
};

/// What the pilot types of fuel and wind; what is left empty is not known.
struct FuelForm {
    std::string fuel;       ///< on board, in the aircraft's unit
    std::string windFrom;   ///< degrees true, 0 to 360
    std::string windSpeed;  ///< knots

    struct Entry {
        std::optional<double> fuel{};
        std::optional<Wind> wind{};
    };

    /// What is in force; a wind that was estimated is not the pilot's.
    static FuelForm of(const CockpitData& data);
    /// As AircraftForm::read(). No more fuel than the aircraft holds.
    [[nodiscard]] std::string read(const AircraftProfile& aircraft, Entry& entry) const;
};

/// "Fuel on board now (L)".
std::string fuelOnBoardName(FuelUnit unit);
/// What is left of the fuel, when it was entered and how long it lasts.
std::string fuelStateText(const CockpitData& data);
/// The wind that is known, who says so and since when.
std::string windStateText(const CockpitData& data);

}  // namespace korvel
