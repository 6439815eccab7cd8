#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "geo/GeoPoint.h"
#include "nav/plan/PlanWaypoint.h"

namespace korvel {

class GeneratedFixes;
class NavDatabase;

using PlanEntries = std::vector<PlanWaypoint>;

// What the pilot does to a plan, as entries in and entries out: nothing here touches the plan in
// force. Neighbours that say the same become one. A row that is not there changes nothing.

struct PlanEditResult {
    std::string error{};    ///< the message for the pilot; empty on success
    PlanEntries entries{};  ///< the new ones; on an error those that were handed in
    std::size_t row = 0;    ///< where the first new entry stands
};

/// Puts what the pilot typed before the entry `row` (the count of entries: behind the last). The
/// words are looked up near the entry before them, else near the one behind, else near `present`.
/// An airway may come first: it is then flown from the entry before it. `icaoPrefix` as in
/// RouteEntry.
PlanEditResult insertWords(const PlanEntries& entries, std::size_t row, std::string_view words,
                           NavDatabase& database, GeneratedFixes& fixes,
                           std::optional<GeoPoint> present, const std::string& icaoPrefix = {});

/// The same with a place that is known already, under its key.
PlanEntries withRecord(PlanEntries entries, std::size_t row,
                       std::shared_ptr<const DatabaseRecord> record);

/// Whether the row is there and stands for that place.
bool isPlace(const PlanEntries& entries, std::size_t row, const DatabaseRecord& place);

/// Puts the place in the row's stead, whose altitude stays.
PlanEntries withPlace(PlanEntries entries, std::size_t row,
                      std::shared_ptr<const DatabaseRecord> record);

/// The line that enters these very entries again: identifiers, or keys where an identifier alone
/// would find a place of another kind. It ends with a space, to go on typing.
std::string routeLine(const PlanEntries& entries, NavDatabase& database,
                      std::optional<GeoPoint> present);

/// Where a new place would stand in the plan, and what the way becomes longer by.
struct PlanRoom {
    std::size_t row = 0;  ///< before this entry; the count of entries: behind the last
    double extraNm = 0;
};

/// The room for a place where the way becomes least longer, not before the entry `first`: what lies
/// before that is flown. The way to `first` counts from `from`, where the aircraft is, else from
/// the entry before it.
PlanRoom roomFor(GeoPoint place, const PlanEntries& entries, std::size_t first,
                 std::optional<GeoPoint> from);

PlanEntries withoutRow(PlanEntries entries, std::size_t row);
/// Takes the row out and puts it where it then stands at `to`.
PlanEntries withRowMoved(PlanEntries entries, std::size_t row, std::size_t to);

/// `altitudeFt` kNoAltitudeFt for none.
PlanEditResult withAltitude(const PlanEntries& entries, std::size_t row, std::int32_t altitudeFt);

}  // namespace korvel
