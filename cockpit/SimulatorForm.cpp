#include "cockpit/SimulatorForm.h"

#include <optional>
#include <string_view>

#include "base/TextNumbers.h"
#include "config/Text.h"
#include "config/texts/FlightTexts.h"
#include "config/texts/SheetTexts.h"
#include "geo/Geodesy.h"

namespace korvel {
namespace {

/// One value of the form and what it may be.
struct Range {
    Text name;
    int lowest;
    int highest;

    /// The number that the whole text is; nothing when it is none or out of range.
    std::optional<double> read(std::string_view text) const {
        const auto value = scanDouble(text);
        const bool isAll = text.find_first_not_of(' ') == std::string_view::npos;
        // NaN fails both comparisons.
        return value && isAll && *value >= lowest && *value <= highest ? value : std::nullopt;
    }
    std::string complaint() const {
        return formatText(kFlightTexts.numberOutOfRange, {text(name), lowest, highest});
    }
};

constexpr Range kLatitude{kSheetTexts.simulatorLatitude, -90, 90};
constexpr Range kLongitude{kSheetTexts.simulatorLongitude, -180, 180};
constexpr Range kHeading{kSheetTexts.simulatorHeading, 0, 360};
constexpr Range kSpeed{kSheetTexts.simulatorSpeed, 0, 900};  // 1000 stands for no speed
constexpr Range kAltitude{kSheetTexts.simulatorAltitude, -1500, 60000};
constexpr int kPositionDecimals = 5;  // about a metre

}  // namespace

SimulatorForm SimulatorForm::of(const SimulatorStart& start) {
    return {.latitude = formatFixed(start.position.lat / kDegToRad, kPositionDecimals),
            .longitude = formatFixed(start.position.lon / kDegToRad, kPositionDecimals),
            .heading = formatInt(start.headingMag),
            .speed = formatFixed(start.speedKt, 0),
            .altitude = formatInt(start.altitudeFt)};
}

std::string SimulatorForm::read(SimulatorStart& start) const {
    const auto lat = kLatitude.read(latitude);
    const auto lon = kLongitude.read(longitude);
    const auto headingMag = kHeading.read(heading);
    const auto speedKt = kSpeed.read(speed);
    const auto altitudeFt = kAltitude.read(altitude);
    if (!lat)
        return kLatitude.complaint();
    if (!lon)
        return kLongitude.complaint();
    if (!headingMag)
        return kHeading.complaint();
    if (!speedKt)
        return kSpeed.complaint();
    if (!altitudeFt)
        return kAltitude.complaint();
    start = {.position = {*lat * kDegToRad, *lon * kDegToRad},
             .headingMag = RoundToInt(*headingMag),
             .speedKt = *speedKt,
             .altitudeFt = RoundToInt(*altitudeFt)};
    return {};
}

}  // namespace korvel
