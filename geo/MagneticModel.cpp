#include "geo/MagneticModel.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cmath>
#include <cstddef>

#include "geo/Geodesy.h"
#include "geo/MagneticCoefficients.h"

namespace korvel {
namespace {

constexpr double kModelEarthKm = 6371.2;
constexpr double kEquatorKm = 6378.137;
constexpr double kFlattening = 1 / 298.257223563;
constexpr double kEccentricitySquared = kFlattening * (2 - kFlattening);
constexpr double kKmPerFoot = 0.0003048;
/// At the poles themselves east has no meaning; just beside them it does.
constexpr double kNearestToPole = 1e-9;

constexpr std::size_t kOrders = kMagneticDegree + 1;
using Orders = std::array<double, kOrders>;

/// Where a geodetic position lies for a sphere about the Earth's centre.
struct Geocentric {
    double lat = 0.0;
    double radiusKm = 0.0;
};

Geocentric geocentric(double lat, double altitudeKm) {
    const double sine = std::sin(lat);
    const double curveKm = kEquatorKm / std::sqrt(1 - kEccentricitySquared * sine * sine);
    const double outKm = (curveKm + altitudeKm) * std::cos(lat);
    const double upKm = (curveKm * (1 - kEccentricitySquared) + altitudeKm) * sine;
    return {.lat = std::atan2(upKm, outKm), .radiusKm = std::hypot(outKm, upKm)};
}

/// The associated Legendre functions of one degree, Schmidt semi-normalised, of the cosine of the
/// colatitude, and their derivatives by the colatitude.
struct Legendre {
    Orders value{};
    Orders slope{};
};

/// The factors that turn Gauss' normalisation of this degree into Schmidt's; `first` is the one of
/// order 0.
Orders schmidtFactors(int degree, double first) {
    Orders factors{first};
    for (int m = 1; m <= degree; ++m) {
        const auto at = static_cast<std::size_t>(m);
        factors[at] =
            factors[at - 1] * std::sqrt((degree - m + 1) * (m == 1 ? 2.0 : 1.0) / (degree + m));
    }
    return factors;
}

/// The next degree in Gauss' normalisation out of the two below it.
Legendre nextDegree(int degree, const Legendre& below, const Legendre& twoBelow, double cosine,
                    double sine) {
    Legendre next;
    for (int m = 0; m < degree; ++m) {
        const auto at = static_cast<std::size_t>(m);
        const double k = static_cast<double>((degree - 1) * (degree - 1) - m * m) /
                         ((2 * degree - 1) * (2 * degree - 3));
        next.value[at] = cosine * below.value[at] - k * twoBelow.value[at];
        next.slope[at] = cosine * below.slope[at] - sine * below.value[at] - k * twoBelow.slope[at];
    }
    const auto top = static_cast<std::size_t>(degree);
    next.value[top] = sine * below.value[top - 1];
    next.slope[top] = sine * below.slope[top - 1] + cosine * below.value[top - 1];
    return next;
}

/// The field on the geocentric sphere in nanotesla.
struct Field {
    double north = 0.0;
    double east = 0.0;
    double down = 0.0;
};

Field fieldAt(const Geocentric& place, double lon, double yearsOn) {
    const double cosine = std::sin(place.lat);  // of the colatitude
    const double sine = std::max(std::cos(place.lat), kNearestToPole);
    Orders cosines{};
    Orders sines{};
    for (std::size_t m = 0; m < kOrders; ++m) {
        cosines[m] = std::cos(static_cast<double>(m) * lon);
        sines[m] = std::sin(static_cast<double>(m) * lon);
    }
    Field field;
    Legendre below{.value = {1.0}};
    Legendre twoBelow{};
    const GaussCoefficient* coefficient = kMagneticCoefficients.data();
    double zonal = 1.0;
    const double shrink = kModelEarthKm / place.radiusKm;
    double scale = shrink * shrink;
    for (int n = 1; n <= kMagneticDegree; ++n) {
        const Legendre now = nextDegree(n, below, twoBelow, cosine, sine);
        zonal *= (2.0 * n - 1) / n;
        const Orders schmidt = schmidtFactors(n, zonal);
        scale *= shrink;
        for (int m = 0; m <= n; ++m, ++coefficient) {
            const auto at = static_cast<std::size_t>(m);
            const double g = coefficient->g + yearsOn * coefficient->gPerYear;
            const double h = coefficient->h + yearsOn * coefficient->hPerYear;
            const double along = g * cosines[at] + h * sines[at];
            const double across = g * sines[at] - h * cosines[at];
            const double weight = scale * schmidt[at];
            field.north += weight * along * now.slope[at];
            field.east += weight * m * across * now.value[at] / sine;
            field.down -= weight * (n + 1) * along * now.value[at];
        }
        twoBelow = below;
        below = now;
    }
    return field;
}

}  // namespace

double decimalYear(int year, int month, int day) {
    const auto newYear = std::chrono::year(year) / std::chrono::January / 1;
    const auto nextYear = std::chrono::year(year + 1) / std::chrono::January / 1;
    const std::chrono::sys_days begin = newYear;
    const std::chrono::sys_days end = nextYear;
    const auto today = std::chrono::sys_days(newYear + std::chrono::months(month - 1)) +
                       std::chrono::days(day - 1);
    return year + static_cast<double>((today - begin).count()) /
                      static_cast<double>((end - begin).count());
}

double modelVariationDeg(GeoPoint position, double year, double altitudeFt) {
    const double yearsOn =
        std::clamp(year, kMagneticModelBegins, kMagneticModelEnds) - kMagneticModelBegins;
    const Geocentric place = geocentric(position.lat, altitudeFt * kKmPerFoot);
    const Field field = fieldAt(place, position.lon, yearsOn);
    const double tilt = place.lat - position.lat;
    const double north = field.north * std::cos(tilt) - field.down * std::sin(tilt);
    return std::atan2(field.east, north) * kRadToDeg;
}

}  // namespace korvel
