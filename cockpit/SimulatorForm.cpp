#include "cockpit/SimulatorForm.h"

#include <array>
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
    int lowest = 0;
    int highest = 0;
    bool mayBeEmpty = false;  ///< which is 0

    /// The number that the whole text is; nothing when it is none or out of range.
    std::optional<double> read(std::string_view text) const {
        if (mayBeEmpty && text.find_first_not_of(' ') == std::string_view::npos)
            return 0;
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
constexpr Range kWindFrom{kSheetTexts.simulatorWindFrom, 0, 360, true};
constexpr Range kWindSpeed{kSheetTexts.simulatorWindSpeed, 0, 200, true};
constexpr int kPositionDecimals = 5;  // about a metre

}  // namespace

SimulatorForm SimulatorForm::of(const SimulatorStart& start) {
    return {.latitude = formatFixed(start.position.lat / kDegToRad, kPositionDecimals),
            .longitude = formatFixed(start.position.lon / kDegToRad, kPositionDecimals),
            .heading = formatInt(start.headingMag == 0 ? kHeading.highest : start.headingMag),
            .speed = formatFixed(start.speedKt, 0),
            .altitude = formatInt(start.altitudeFt),
            .windFrom = formatFixed(start.wind.fromTrueDeg, 0),
            .windSpeed = formatFixed(start.wind.speedKt, 0)};
}

std::string SimulatorForm::read(SimulatorStart& start) const {
    SimulatorStart typed = start;
    double headingMag = 0;
    double altitudeFt = 0;
    struct Line {
        const Range& range;
        const std::string& text;
        double& value;
    };
    const std::array<Line, 7> lines{{{kLatitude, latitude, typed.position.lat},
                                     {kLongitude, longitude, typed.position.lon},
                                     {kHeading, heading, headingMag},
                                     {kSpeed, speed, typed.speedKt},
                                     {kAltitude, altitude, altitudeFt},
                                     {kWindFrom, windFrom, typed.wind.fromTrueDeg},
                                     {kWindSpeed, windSpeed, typed.wind.speedKt}}};
    for (const Line& line : lines) {
        const auto value = line.range.read(line.text);
        if (!value)
            return line.range.complaint();
        line.value = *value;
    }
    typed.position = {typed.position.lat * kDegToRad, typed.position.lon * kDegToRad};
    typed.headingMag = RoundToInt(headingMag);
    typed.altitudeFt = RoundToInt(altitudeFt);
    start = typed;
    return {};
}

}  // namespace korvel
