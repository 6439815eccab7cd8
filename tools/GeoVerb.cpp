#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <iterator>
#include <string>
#include <string_view>
#include <vector>

#include "base/TextNumbers.h"
#include "geo/Geodesy.h"
#include "geo/MagneticModel.h"
#include "tools/Arguments.h"
#include "tools/Invocation.h"
#include "tools/Verbs.h"

namespace korvel {
namespace {

constexpr int kDecimals = 6;
/// Just below the ground to 850 km.
constexpr double kModelLowestFt = -3300;
constexpr double kModelHighestFt = 2.8e6;
constexpr double kLargestHeading = 1e6;  ///< some way around the circle, but an integer yet

using Numbers = std::vector<double>;

struct Operation {
    std::string_view name;
    std::size_t argumentCount;
    Json (*compute)(const Numbers& numbers);
};

Json inDegrees(double lat, double lon) {
    return {{"lat", lat * kRadToDeg}, {"lon", lon * kRadToDeg}};
}

Json distance(const Numbers& n) {
    const GeoPoint from = toPosition(n[0], n[1]);
    const GeoPoint to = toPosition(n[2], n[3]);
    return {{"rad", GreatCircleDistance(from.lat, from.lon, to.lat, to.lon)},
            {"nm", DistanceNm(from, to)}};
}

Json course(const Numbers& n) {
    return {{"deg", TrueCourseDeg(toPosition(n[0], n[1]), toPosition(n[2], n[3]))}};
}

Json point(const Numbers& n) {
    const GeoPoint from = toPosition(n[0], n[1]);
    double lat = 0;
    double lon = 0;
    PointAtRadialDistance(from.lat, from.lon, n[2] / kNmPerRadian, n[3] * kDegToRad, lat, lon);
    return inDegrees(lat, lon);
}

Json middle(const Numbers& n) {
    const GeoPoint from = toPosition(n[0], n[1]);
    const GeoPoint to = toPosition(n[2], n[3]);
    double lat = 0;
    double lon = 0;
    GreatCircleMidLatitude(from.lat, from.lon, to.lat, to.lon, lat, lon);
    return inDegrees(lat, lon);
}

Json turn(const Numbers& n) {
    if (std::max(std::abs(n[0]), std::abs(n[1])) > kLargestHeading)
        usageError("A heading is a number of degrees");
    return {{"deg", HeadingDifferenceDeg(n[0], n[1])}};
}

/// Two numbers more than what is typed: the decimal year and the altitude in feet.
Json magneticVariation(const Numbers& n) {
    return {{"deg", modelVariationDeg(toPosition(n[0], n[1]), n[2], n[3])}};
}

constexpr std::array kOperations = {
    Operation{"distance", 4, distance}, Operation{"course", 4, course},
    Operation{"point", 4, point},       Operation{"midlat", 4, middle},
    Operation{"turn", 2, turn},         Operation{"variation", 2, magneticVariation},
};

/// Where and when the magnetic model is asked.
struct ModelOptions {
    std::string date;
    std::string altitude = "0";

    void declare(CLI::App& app) {
        app.add_option("--date", date, "Day of the variation, YYYY-MM-DD; today without it");
        app.add_option("--altitude", altitude, "Altitude of the variation, feet");
    }
    [[nodiscard]] double year(const Invocation& call) const {
        const LocalTime day = date.empty() ? call.now() : toLocalTime(date + "T00:00:00");
        return decimalYear(day.year, day.month, day.day);
    }
    [[nodiscard]] double altitudeFt() const {
        const double feet = toNumber(altitude);
        if (!(feet >= kModelLowestFt && feet <= kModelHighestFt))
            usageError("The altitude is beyond what the magnetic model describes: " + altitude);
        return feet;
    }
};

std::string plainText(const Json& result) {
    std::string plain;
    for (const auto& [name, value] : result.items()) {
        plain += name + " " +
                 (value.is_number_integer() ? formatInt(value.get<int>())
                                            : formatFixed(value.get<double>(), kDecimals)) +
                 "\n";
    }
    return plain;
}

}  // namespace

int runGeo(Invocation& call) {
    std::string name;
    std::vector<std::string> words;
    ModelOptions model;
    model.declare(call.options());
    call.options()
        .add_option("operation", name, "distance, course, point, midlat, turn or variation")
        ->required();
    call.options()
        .add_option("numbers", words,
                    "LAT1 LON1 LAT2 LON2 (distance, course, midlat), LAT LON NM COURSE (point), "
                    "FROM TO (turn), LAT LON (variation)")
        ->required();
    call.parse();
    const auto* operation = std::ranges::find(kOperations, name, &Operation::name);
    if (operation == kOperations.end())
        usageError("Unknown operation: " + name);
    if (words.size() != operation->argumentCount) {
        usageError(name + " takes " + formatInt(static_cast<int>(operation->argumentCount)) +
                   " numbers");
    }
    Numbers numbers;
    std::ranges::transform(words, std::back_inserter(numbers), toNumber);
    if (operation->compute == magneticVariation) {
        const double year = model.year(call);
        if (year < kMagneticModelBegins || year > kMagneticModelEnds)
            return call.fail("The magnetic model holds from 2025 to 2030", Json{{"deg", nullptr}});
        numbers.insert(numbers.end(), {year, model.altitudeFt()});
    }
    const Json result = operation->compute(numbers);
    return call.done(result, plainText(result));
}

}  // namespace korvel
