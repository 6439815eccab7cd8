#include "cockpit/AircraftForm.h"

#include <cmath>
#include <cstdint>

#include "base/Ascii.h"
#include "base/Calendar.h"
#include "base/TextNumbers.h"
#include "base/Utf8.h"
#include "cockpit/CockpitData.h"
#include "config/texts/AircraftTexts.h"
#include "config/texts/FlightTexts.h"
#include "geo/GeoText.h"
#include "geo/Geodesy.h"

namespace korvel {
namespace {

constexpr int kMinutesPerHour = 60;
constexpr int kMostWindKt = 200;
constexpr int kFullCircleDeg = 360;

bool isBlank(std::string_view text) {
    return text.find_first_not_of(' ') == std::string_view::npos;
}

/// The number that the whole text is; nothing when it is none or out of range.
std::optional<double> readNumber(std::string_view text, int lowest, int highest) {
    const auto value = scanDouble(text);
    // NaN fails both comparisons.
    const bool fits = value && isBlank(text) && *value >= lowest && *value <= highest;
    return fits ? value : std::nullopt;
}

std::string complaint(std::string_view name, int lowest, int highest) {
    return formatText(kFlightTexts.numberOutOfRange, {name, lowest, highest});
}

std::string firstLetters(std::string_view text, int most) {
    std::string_view rest = text;
    for (int i = 0; i < most && !rest.empty(); ++i)
        takeCodePoint(rest);
    return std::string(text.substr(0, text.size() - rest.size()));
}

}  // namespace

AircraftForm AircraftForm::of(const AircraftProfile& aircraft) {
    AircraftForm form{.name = aircraft.name, .fuelUnit = aircraft.fuelUnit, .numbers = {}};
    for (const AircraftNumber& number : aircraftNumbers())
        form.numbers.push_back(formatFixed(aircraft.*number.member, number.decimals));
    return form;
}

std::string AircraftForm::read(AircraftProfile& aircraft) const {
    constexpr int kMostLetters = 20;
    AircraftProfile entered{.name = firstLetters(name, kMostLetters), .fuelUnit = fuelUnit};
    for (std::size_t i = 0; i < aircraftNumbers().size(); ++i) {
        const AircraftNumber& number = aircraftNumbers()[i];
        const auto value = readNumber(i < numbers.size() ? numbers[i] : std::string(),
                                      number.lowest, number.highest);
        if (!value)
            return complaint(text(number.name), number.lowest, number.highest);
        entered.*number.member = *value;
    }
    aircraft = entered;
    return {};
}

FuelForm FuelForm::of(const CockpitData& data) {
    FuelForm form;
    if (data.fuelLeft)
        form.fuel = formatFixed(*data.fuelLeft, 0);
    if (data.wind && data.wind->entered) {
        form.windFrom = formatFixed(data.wind->wind.fromTrueDeg, 0);
        form.windSpeed = formatFixed(data.wind->wind.speedKt, 0);
    }
    return form;
}

std::string FuelForm::read(const AircraftProfile& aircraft, Entry& entry) const {
    Entry typed;
    const int most = RoundToInt(std::ceil(aircraft.usableFuel));
    typed.fuel = readNumber(fuel, 0, most);
    if (!typed.fuel && !isBlank(fuel))
        return complaint(fuelOnBoardName(aircraft.fuelUnit), 0, most);
    if (isBlank(windFrom) != isBlank(windSpeed))
        return std::string(text(kAircraftTexts.windHalf));
    if (!isBlank(windFrom)) {
        const auto from = readNumber(windFrom, 0, kFullCircleDeg);
        const auto speed = readNumber(windSpeed, 0, kMostWindKt);
        if (!from)
            return complaint(text(kAircraftTexts.windFrom), 0, kFullCircleDeg);
        if (!speed)
            return complaint(text(kAircraftTexts.windSpeed), 0, kMostWindKt);
        typed.wind = Wind{.fromTrueDeg = *from, .speedKt = *speed};
    }
    entry = typed;
    return {};
}

std::string fuelOnBoardName(FuelUnit unit) {
    return formatText(kAircraftTexts.fuelOnBoard, {fuelUnitText(unit)});
}

std::string fuelStateText(const CockpitData& data) {
    if (!data.aircraft)
        return std::string(text(kAircraftTexts.needsAircraft));
    if (!data.fuelLeft)
        return std::string(text(kAircraftTexts.fuelNone));
    const std::string left = fuelText(*data.fuelLeft, data.aircraft->fuelUnit);
    const std::string at =
        timeOfDayText(data.secondOfDay() - std::int64_t{60} * data.fuelAgeMin.value_or(0));
    // Cut, not rounded: what is not there does not burn.
    const std::string lasts = hoursAndMinutes(
        static_cast<std::int64_t>(*data.fuelLeft / data.aircraft->burnPerHour * kMinutesPerHour));
    return formatText(kAircraftTexts.fuelState,
                      {std::string_view(left), std::string_view(at), std::string_view(lasts)});
}

std::string windStateText(const CockpitData& data) {
    if (!data.wind)
        return std::string(text(kAircraftTexts.windNone));
    const std::string wind = courseText(data.wind->wind.fromTrueDeg) + "°T " +
                             formatFixed(data.wind->wind.speedKt, 0) + " kt";
    return formatText(
        kAircraftTexts.windAge,
        {text(data.wind->entered ? kAircraftTexts.windEntered : kAircraftTexts.windEstimated),
         std::string_view(wind), data.wind->ageMin});
}

}  // namespace korvel
