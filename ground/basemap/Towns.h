#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "geo/GeoPoint.h"

namespace korvel {

struct Town {
    GeoPoint position;
    std::uint32_t population = 0;  ///< to a tenth
    bool capital = false;          ///< of a country
    bool seat = false;             ///< of a state's, region's or county's government
    std::string name;              ///< UTF-8, letters that the program's typeface has
};

/// The cell of 5 degrees that a place lies in, or a column and row of them.
int townCellOf(GeoPoint position);

/// The towns of a cell, most inhabitants first. False when the bytes are no such list; then it is
/// empty.
[[nodiscard]] bool decodeTowns(std::span<const std::uint8_t> bytes, int cell,
                               std::vector<Town>& towns);
/// The other way: the towns lie in the cell and are in order.
std::string encodeTowns(std::span<const Town> towns, int cell);

}  // namespace korvel
