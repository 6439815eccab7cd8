#include "geo/GeoText.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "base/Ascii.h"
#include "base/TextNumbers.h"
#include "geo/Geodesy.h"
#include "geo/Units.h"
#include "geo/Variation.h"

namespace korvel {
namespace {

constexpr std::array kPowersOfTen{1.0, 10.0, 100.0, 1000.0};

// Rounded as a whole and split afterwards, so that the minutes never read 60.
std::string coordinateText(char hemisphere, double degrees, std::size_t degreeDigits,
                           int decimals) {
    const int places = std::clamp(decimals, 0, 3);
    const double parts = kPowersOfTen.at(static_cast<std::size_t>(places));
    const double total = std::round(std::abs(degrees) * 60 * parts);
    const double whole = std::floor(total / (60 * parts));
    const double minutes = (total - whole * 60 * parts) / parts;
    const std::size_t minuteWidth = places == 0 ? 2 : static_cast<std::size_t>(places) + 3;
    std::string text(1, hemisphere);
    text += zeroPadded(formatFixed(whole, 0), degreeDigits) + "°";
    return text += zeroPadded(formatFixed(minutes, places), minuteWidth) + "'";
}

}  // namespace

std::string latitudeText(double degrees, int decimals) {
    return coordinateText(degrees < 0 ? 'S' : 'N', degrees, 2, decimals);
}

std::string longitudeText(double degrees, int decimals) {
    const double folded = 180 - PositiveMod(180 - degrees, 360);  // above -180, up to 180
    return coordinateText(folded < 0 ? 'W' : 'E', folded, 3, decimals);
}

std::string distanceText(double nm, DistanceUnit unit) {
    std::string text = distanceTenthsText(nm, unit);
    if (const std::size_t zero = text.find(".0 "); zero != std::string::npos)
        text.erase(zero, 2);
    return text;
}

std::string distanceTenthsText(double nm, DistanceUnit unit) {
    UnitLabels labels;
    const double shown = ConvertDistance(nm, unit, &labels);
    return formatFixed(shown, shown < 99.95 ? 1 : 0) + " " + std::string(labels.distance);
}

std::string altitudeText(int feet, int altUnit) {
    return altUnit == 1 ? formatInt(RoundToInt(feet * kMetresPerFoot)) + " m"
                        : formatInt(feet) + " ft";
}

std::string courseText(double degrees) {
    const int whole = RoundToInt(PositiveMod(degrees, 360));
    return zeroPadded(whole == 0 ? 360 : whole, 3);
}

std::string courseText(double trueDeg, std::optional<double> variationDeg) {
    return variationDeg ? courseText(magneticOf(trueDeg, *variationDeg)) + "°M"
                        : courseText(trueDeg) + "°T";
}

std::string timeOfDayText(std::int64_t secondOfDay) {
    constexpr std::int64_t kDay = 86400;
    const std::int64_t minutes = ((secondOfDay % kDay + kDay) % kDay) / 60;
    return zeroPadded(minutes / 60, 2) + ":" + zeroPadded(minutes % 60, 2);
}

std::string ageText(int seconds) {
    if (seconds < 60)
        return formatInt(seconds) + " s";
    if (seconds < 3600)
        return formatInt(seconds / 60) + " min " + zeroPadded(seconds % 60, 2) + " s";
    return formatInt(seconds / 3600) + " h " + zeroPadded(seconds / 60 % 60, 2) + " min";
}

std::string coordinatesText(GeoPoint position) {
    return latitudeText(position.lat * kRadToDeg, 2) + "  " +
           longitudeText(position.lon * kRadToDeg, 2);
}

}  // namespace korvel
