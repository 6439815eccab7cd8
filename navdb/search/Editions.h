#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "navdb/file/DatabaseFile.h"
#include "navdb/search/PlaceSearch.h"

namespace korvel {

/// Two files may hold the same place: equal RecordKeys within this distance. It is then found once,
/// in the later of them.
inline constexpr double kSamePlaceNm = 1.0;

/// Files that are open together, by number.
using DatabaseFiles = std::span<const std::unique_ptr<DatabaseFile>>;

/// Whether the data of file `a` go before those of `b`: a later expiry date or, of equal ones, a
/// lower number.
[[nodiscard]] bool goesBefore(DatabaseFiles files, std::size_t a, std::size_t b);

/// Whether any file goes before this one.
[[nodiscard]] bool mayBeOutdone(DatabaseFiles files, int file);

/// Whether a file that goes before the place's own holds it as well. Takes the row locks of those
/// files one after the other: call it while none is held.
[[nodiscard]] bool isOutdone(const PlaceSources& sources, const Place& place);

/// The row in which a file holds the place, if it does and the row is not excluded. Takes that
/// file's row lock.
[[nodiscard]] std::optional<RowMatch> rowOfSame(const PlaceSources& sources, std::size_t file,
                                                const Place& place);

/// Leaves out the pieces of one airway that a file which goes before their own describes as well:
/// by the same text or, when its data are later, by one that shares two identifiers with theirs.
/// `filesOf` says for each piece which file it comes from.
void dropOutdone(DatabaseFiles files, std::span<const std::size_t> filesOf,
                 std::vector<std::string>& routes);

}  // namespace korvel
