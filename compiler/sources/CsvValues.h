#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "compiler/sources/AviationData.h"
#include "compiler/sources/CsvTable.h"
#include "compiler/sources/GeoDegrees.h"

namespace korvel {

// What the fields of comma-separated tables say, the same in all of them.

/// An elevation, rounded; nothing for other text and for what no place on Earth has.
std::optional<int> wholeFeet(std::string_view text);
/// A length; the tables say 0 where they know none.
std::optional<int> positiveFeet(std::string_view text);
std::optional<GeoDegrees> positionOf(std::string_view latText, std::string_view lonText);
/// The surface's short word, and whether it is hard.
void setSurface(std::string_view text, SourceRunway& runway);

/// Reads the header and calls `take` for each row; empty, or why the table is refused.
template <class Take>
[[nodiscard]] std::string eachRow(CsvTable& table, std::span<const std::string_view> required,
                                  Take take) {
    if (auto refused = table.readHeader(required); !refused.empty())
        return refused;
    while (table.next())
        take();
    return table.failure();
}

}  // namespace korvel
