#include "config/AircraftProfile.h"

#include <array>
#include <cmath>

#include "base/TextNumbers.h"
#include "config/ProfileFile.h"
#include "config/texts/AircraftTexts.h"

namespace korvel {
namespace {

constexpr std::string_view kSection = "Aircraft";
constexpr std::string_view kEntered = "Entered";
constexpr std::string_view kName = "Name";
constexpr std::string_view kFuelUnit = "FuelUnit";

using Profile = AircraftProfile;

constexpr std::array kNumbers{
    AircraftNumber{"Cruise", kAircraftTexts.cruise, &Profile::cruiseKt, 30, 500, 0, 5},
    AircraftNumber{"ClimbSpeed", kAircraftTexts.climbSpeed, &Profile::climbKt, 30, 400, 0, 5},
    AircraftNumber{"ClimbRate", kAircraftTexts.climbRate, &Profile::climbFpm, 50, 6000, 0, 50},
    AircraftNumber{"DescentSpeed", kAircraftTexts.descentSpeed, &Profile::descentKt, 30, 500, 0, 5},
    AircraftNumber{"DescentRate", kAircraftTexts.descentRate, &Profile::descentFpm, 50, 6000, 0,
                   50},
    AircraftNumber{"Burn", kAircraftTexts.burn, &Profile::burnPerHour, 1, 2000, 1, 1},
    AircraftNumber{"Usable", kAircraftTexts.usable, &Profile::usableFuel, 1, 20000, 0, 5},
    AircraftNumber{"Reserve", kAircraftTexts.reserve, &Profile::reserveMinutes, 0, 180, 0, 5},
    AircraftNumber{"GlideRatio", kAircraftTexts.glideRatio, &Profile::glideRatio, 2, 60, 1, 1},
    AircraftNumber{"GlideSpeed", kAircraftTexts.glideSpeed, &Profile::glideKt, 25, 250, 0, 5},
    AircraftNumber{"Tank", kAircraftTexts.tankMinutes, &Profile::tankMinutes, 0, 240, 0, 15},
};

}  // namespace

std::span<const AircraftNumber> aircraftNumbers() { return kNumbers; }

std::string_view fuelUnitText(FuelUnit unit) { return unit == FuelUnit::Gallons ? "gal" : "L"; }

std::string fuelText(double amount, FuelUnit unit) {
    return formatFixed(amount, 0) + " " + std::string(fuelUnitText(unit));
}

std::optional<AircraftProfile> loadAircraft(ProfileFile& profile) {
    if (profile.getInt(kSection, kEntered, 0) == 0)
        return std::nullopt;
    AircraftProfile aircraft;
    aircraft.name = profile.getString(kSection, kName, "");
    if (profile.getInt(kSection, kFuelUnit, 0) == 1)
        aircraft.fuelUnit = FuelUnit::Gallons;
    for (const AircraftNumber& number : kNumbers) {
        const std::string stored = profile.getString(kSection, number.key, "");
        std::string_view words = stored;
        const auto value = scanDouble(words);
        // NaN fails both comparisons.
        if (value && *value >= number.lowest && *value <= number.highest)
            aircraft.*number.member = *value;
    }
    return aircraft;
}

void storeAircraft(ProfileFile& profile, const std::optional<AircraftProfile>& aircraft) {
    profile.setInt(kSection, kEntered, aircraft ? 1 : 0, true);
    if (!aircraft)
        return;
    profile.setString(kSection, kName, aircraft->name, true);
    profile.setInt(kSection, kFuelUnit, static_cast<int>(aircraft->fuelUnit), true);
    for (const AircraftNumber& number : kNumbers)
        profile.setString(kSection, number.key,
                          formatFixed((*aircraft).*number.member, number.decimals), true);
}

}  // namespace korvel
