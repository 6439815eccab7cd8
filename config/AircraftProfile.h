#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "config/Text.h"

namespace korvel {

class ProfileFile;

/// In which the pilot counts fuel.
enum class FuelUnit : std::uint8_t { Litres, Gallons };

/// The aircraft that the pilot flies. Speeds are knots through the air, rates feet a minute; fuel
/// is in its own unit. What a new one begins with is that of a small trainer.
struct AircraftProfile {
    std::string name;
    FuelUnit fuelUnit = FuelUnit::Litres;
    double cruiseKt = 100;
    double climbKt = 75;
    double climbFpm = 500;
    double descentKt = 100;
    double descentFpm = 500;
    double burnPerHour = 25;
    double usableFuel = 100;
    double reserveMinutes = 30;
    double glideRatio = 9;  ///< distance over height in still air
    double glideKt = 65;
    double tankMinutes = 0;  ///< after which the pilot takes the other tank; 0 for one tank

    [[nodiscard]] double reserveFuel() const {
        constexpr double kMinutesPerHour = 60;
        return burnPerHour * reserveMinutes / kMinutesPerHour;
    }

    friend bool operator==(const AircraftProfile&, const AircraftProfile&) = default;
};

/// One of its numbers: where the profile keeps it, what the pilot calls it, what it may be.
struct AircraftNumber {
    std::string_view key;
    Text name;
    double AircraftProfile::*member;
    int lowest;
    int highest;
    int decimals;
    int step;  ///< that a button changes it by
};

/// All of them, in the order in which the pilot is asked.
std::span<const AircraftNumber> aircraftNumbers();

/// "L" or "gal".
std::string_view fuelUnitText(FuelUnit unit);
/// "86 L", without decimals.
std::string fuelText(double amount, FuelUnit unit);

/// What the profile says; nothing when no aircraft was entered. A number that makes no sense counts
/// as the usual one. Saves nothing.
std::optional<AircraftProfile> loadAircraft(ProfileFile& profile);

/// Reaches the file with the profile's next save. Without an aircraft the numbers stay, to be
/// offered again.
void storeAircraft(ProfileFile& profile, const std::optional<AircraftProfile>& aircraft);

}  // namespace korvel
