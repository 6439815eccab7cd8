#include "geo/Sun.h"

#include <algorithm>
#include <cmath>

#include "geo/Geodesy.h"

namespace korvel {
namespace {

constexpr double kMinutesPerDay = 1440;
constexpr double kMinutesPerDegree = 4;  // the Earth turns by it
constexpr double kSecondsPerMinute = 60;

double sinDeg(double degrees) { return std::sin(degrees * kDegToRad); }
double cosDeg(double degrees) { return std::cos(degrees * kDegToRad); }

/// Where the sun stands at a moment.
struct SunPosition {
    explicit SunPosition(double unixSeconds);

    double declinationDeg;
    double equationOfTimeMin;  ///< true solar time less the mean one
};

SunPosition::SunPosition(double unixSeconds) {
    constexpr double kEpoch2000 = 946728000;  // noon of 2000-01-01
    constexpr double kSecondsPerCentury = 86400.0 * 36525;
    const double t = (unixSeconds - kEpoch2000) / kSecondsPerCentury;
    const double meanLongitude = 280.46646 + t * (36000.76983 + t * 0.0003032);
    const double anomaly = 357.52911 + t * (35999.05029 - t * 0.0001537);
    const double eccentricity = 0.016708634 - t * (0.000042037 + t * 0.0000001267);
    const double center = sinDeg(anomaly) * (1.914602 - t * (0.004817 + t * 0.000014)) +
                          sinDeg(2 * anomaly) * (0.019993 - t * 0.000101) +
                          sinDeg(3 * anomaly) * 0.000289;
    const double node = 125.04 - 1934.136 * t;
    const double longitude = meanLongitude + center - 0.00569 - 0.00478 * sinDeg(node);
    const double meanObliquity =
        23 + (26 + (21.448 - t * (46.815 + t * (0.00059 - t * 0.001813))) / 60) / 60;
    const double obliquity = meanObliquity + 0.00256 * cosDeg(node);
    declinationDeg = std::asin(sinDeg(obliquity) * sinDeg(longitude)) * kRadToDeg;
    const double y = std::pow(std::tan(obliquity / 2 * kDegToRad), 2);
    const double radians = y * sinDeg(2 * meanLongitude) - 2 * eccentricity * sinDeg(anomaly) +
                           4 * eccentricity * y * sinDeg(anomaly) * cosDeg(2 * meanLongitude) -
                           y * y / 2 * sinDeg(4 * meanLongitude) -
                           1.25 * eccentricity * eccentricity * sinDeg(2 * anomaly);
    equationOfTimeMin = radians * kRadToDeg * kMinutesPerDegree;
}

/// The cosine of the angle by which the Earth turns between noon and sunset; beyond -1 and 1 the
/// sun does not set, or does not rise.
double cosHalfDay(GeoPoint place, const SunPosition& sun) {
    return cosDeg(kSunriseZenithDeg) / (std::cos(place.lat) * cosDeg(sun.declinationDeg)) -
           std::tan(place.lat) * std::tan(sun.declinationDeg * kDegToRad);
}

/// The moment of rising (-1) or setting (1) on the day whose noon by the mean sun that is.
std::int64_t crossing(GeoPoint place, double meanNoon, int side) {
    constexpr int kRounds = 3;  // the sun moves on until then
    double moment = meanNoon;
    for (int round = 0; round < kRounds; ++round) {
        const SunPosition sun(moment);
        const double halfDay = std::acos(std::clamp(cosHalfDay(place, sun), -1.0, 1.0)) * kRadToDeg;
        moment = meanNoon +
                 (side * halfDay * kMinutesPerDegree - sun.equationOfTimeMin) * kSecondsPerMinute;
    }
    return static_cast<std::int64_t>(std::llround(moment));
}

}  // namespace

SunDay sunDay(GeoPoint place, std::int64_t unixSeconds) {
    const auto now = static_cast<double>(unixSeconds);
    const SunPosition sun(now);
    const double meanSolarMin = now / kSecondsPerMinute + place.lon * kRadToDeg * kMinutesPerDegree;
    const double intoDayMin = PositiveMod(meanSolarMin + sun.equationOfTimeMin, kMinutesPerDay);
    const double noon = now + (kMinutesPerDay / 2 - intoDayMin) * kSecondsPerMinute;
    const SunPosition atNoon(noon);
    const double cosine = cosHalfDay(place, atNoon);
    if (cosine <= -1)
        return {.kind = SunDay::Kind::StaysUp};
    if (cosine >= 1)
        return {.kind = SunDay::Kind::StaysDown};
    const double meanNoon = noon + atNoon.equationOfTimeMin * kSecondsPerMinute;
    return {.rise = crossing(place, meanNoon, -1), .set = crossing(place, meanNoon, 1)};
}

}  // namespace korvel
