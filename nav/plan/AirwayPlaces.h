#pragma once

#include <cstddef>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "navdb/records/DatabaseRecord.h"

namespace korvel {

class GeneratedFixes;
class NavDatabase;

/// A stretch of an airway's piece, both ends included.
struct PieceRange {
    std::size_t first = 0;
    std::size_t last = 0;
};

/// Finds out which places the identifiers or RecordKeys of an airway's piece mean. Identifiers
/// repeat over the world, sometimes twice within a hundred miles, but the fixes of an airway follow
/// each other closely: of all the places that a piece could lead over, those are meant that make it
/// shortest. `known` is as long as `piece` and holds the places that are certain, null for the
/// others. The result, as long, is null where there is no place, and outside `wanted`: of the rest
/// of the piece no more is looked up than can make a difference.
std::vector<std::shared_ptr<const DatabaseRecord>> placesAlong(
    std::span<const std::string> piece,
    std::span<const std::shared_ptr<const DatabaseRecord>> known, PieceRange wanted,
    const NavDatabase& database, const GeneratedFixes& fixes);

}  // namespace korvel
