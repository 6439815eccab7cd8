#pragma once

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include "geo/GeoPoint.h"

namespace korvel {

/// How high mean sea level stands above the WGS 84 ellipsoid, from a table of whole degrees:
/// little-endian signed 16-bit centimetres, 181 rows from 90 S to 90 N of 361 values from 180 W to
/// 180 E.
class Geoid {
 public:
    /// The file in the data folders that holds the table.
    static constexpr std::string_view kFileName = "egm96-1deg.bin";

    /// Nothing for bytes that are no such table.
    static std::optional<Geoid> fromBytes(std::string_view bytes);

    /// Metres, -107 to 85; between the values of the table in a straight line.
    double heightM(GeoPoint place) const;

 private:
    double valueAt(int row, int column) const;

    std::vector<std::int16_t> centimetres_;
};

}  // namespace korvel
