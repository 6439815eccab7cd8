#include "geo/Geoid.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

#include "geo/Geodesy.h"

namespace korvel {
namespace {

constexpr int kRows = 181;
constexpr int kColumns = 361;
constexpr double kCentimetresPerMetre = 100;

}  // namespace

std::optional<Geoid> Geoid::fromBytes(std::string_view bytes) {
    constexpr std::size_t kValues = std::size_t{kRows} * kColumns;
    if (bytes.size() != 2 * kValues)
        return std::nullopt;
    Geoid geoid;
    geoid.centimetres_.reserve(kValues);
    for (std::size_t i = 0; i < bytes.size(); i += 2) {
        const auto low = static_cast<unsigned char>(bytes[i]);
        const auto high = static_cast<unsigned char>(bytes[i + 1]);
        geoid.centimetres_.push_back(static_cast<std::int16_t>(low | high << 8U));
    }
    return geoid;
}

double Geoid::valueAt(int row, int column) const {
    return centimetres_.at(static_cast<std::size_t>(row * kColumns + column)) /
           kCentimetresPerMetre;
}

double Geoid::heightM(GeoPoint place) const {
    const double y = std::clamp(place.lat * kRadToDeg + 90, 0.0, kRows - 1.0);
    const double x = std::clamp(place.lon * kRadToDeg + 180, 0.0, kColumns - 1.0);
    const int row = std::min(static_cast<int>(y), kRows - 2);
    const int column = std::min(static_cast<int>(x), kColumns - 2);
    const double up = y - row;
    const double right = x - column;
    return (1 - up) * ((1 - right) * valueAt(row, column) + right * valueAt(row, column + 1)) +
           up * ((1 - right) * valueAt(row + 1, column) + right * valueAt(row + 1, column + 1));
}

}  // namespace korvel
