#include "nav/plan/PlanEdit.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "config/Text.h"
#include "config/texts/FlightTexts.h"
#include "geo/Geodesy.h"
#include "nav/plan/GeneratedFixes.h"
#include "nav/plan/PlaceLookup.h"
#include "nav/plan/RouteEntry.h"
#include "nav/plan/RouteWords.h"
#include "navdb/records/RecordKey.h"

namespace korvel {
namespace {

PlanEntries withoutRepeats(PlanEntries entries) {
    const auto sameText = [](const PlanWaypoint& a, const PlanWaypoint& b) {
        return a.text == b.text;
    };
    entries.erase(std::unique(entries.begin(), entries.end(), sameText), entries.end());
    return entries;
}

/// Begins with the entry before the new ones, so that an airway can be flown from there.
std::string lineFrom(const PlanWaypoint* before, std::string_view words) {
    std::string line = before != nullptr ? before->record->key + ' ' : std::string();
    return line.append(words);
}

}  // namespace

PlanEditResult insertWords(const PlanEntries& entries, std::size_t row, std::string_view words,
                           NavDatabase& database, GeneratedFixes& fixes,
                           std::optional<GeoPoint> present, const std::string& icaoPrefix) {
    row = std::min(row, entries.size());
    const PlanWaypoint* const before = row > 0 ? &entries[row - 1] : nullptr;
    const PlanWaypoint* const behind = row < entries.size() ? &entries[row] : nullptr;
    const PlanWaypoint* const near = before != nullptr ? before : behind;
    RouteEntry route(database, fixes, near != nullptr ? near->position() : present, icaoPrefix);
    RouteResult result = route.EnterRoute(lineFrom(before, words), true);
    if (!result.error.empty())
        return {.error = std::move(result.error), .entries = entries, .row = row};
    auto first = result.entries.begin();
    if (before != nullptr && first != result.entries.end())
        ++first;
    PlanEditResult edited{.entries = entries, .row = row};
    edited.entries.insert(edited.entries.begin() + static_cast<std::ptrdiff_t>(row),
                          std::make_move_iterator(first),
                          std::make_move_iterator(result.entries.end()));
    edited.entries = withoutRepeats(std::move(edited.entries));
    return edited;
}

PlanEntries withRecord(PlanEntries entries, std::size_t row,
                       std::shared_ptr<const DatabaseRecord> record) {
    row = std::min(row, entries.size());
    PlanWaypoint entry;
    entry.text = record->key;
    entry.key = record->key;
    entry.record = std::move(record);
    entries.insert(entries.begin() + static_cast<std::ptrdiff_t>(row), std::move(entry));
    return withoutRepeats(std::move(entries));
}

bool isPlace(const PlanEntries& entries, std::size_t row, const DatabaseRecord& place) {
    return row < entries.size() && entries[row].record->key == place.key &&
           SamePoint(entries[row].position(), place.position);
}

PlanEntries withPlace(PlanEntries entries, std::size_t row,
                      std::shared_ptr<const DatabaseRecord> record) {
    if (row < entries.size()) {
        PlanWaypoint& entry = entries[row];
        entry.key = record->key;
        entry.text = entry.key + altitudeSuffix(entry.altitudeFt);
        entry.record = std::move(record);
    }
    return withoutRepeats(std::move(entries));
}

std::string routeLine(const PlanEntries& entries, NavDatabase& database,
                      std::optional<GeoPoint> present) {
    const GeneratedFixes none;
    PlaceLookup lookup(database, none, present);
    std::string line;
    for (const PlanWaypoint& entry : entries) {
        const std::string ident(identOfKey(entry.key));
        const auto found = lookup.peek(ident);
        const bool isPlain = found && found->key == entry.record->key &&
                             SamePoint(found->position, entry.position());
        line += (isPlain ? ident : entry.key) + altitudeSuffix(entry.altitudeFt) + ' ';
        lookup.moveTo(entry.position());
    }
    return line;
}

PlanRoom roomFor(GeoPoint place, const PlanEntries& entries, std::size_t first,
                 std::optional<GeoPoint> from) {
    first = std::min(first, entries.size());
    if (!from && first > 0)
        from = entries[first - 1].position();
    const auto nm = [](std::optional<GeoPoint> a, std::optional<GeoPoint> b) {
        return a && b ? DistanceNm(*a, *b) : 0;
    };
    std::optional<PlanRoom> best;
    for (std::size_t row = first; row <= entries.size(); ++row) {
        const auto before = row > first ? std::optional(entries[row - 1].position()) : from;
        const auto behind =
            row < entries.size() ? std::optional(entries[row].position()) : std::nullopt;
        const double extra = nm(before, place) + nm(place, behind) - nm(before, behind);
        if (!best || extra < best->extraNm)
            best = {.row = row, .extraNm = extra};
    }
    return *best;
}

PlanEntries withoutRow(PlanEntries entries, std::size_t row) {
    if (row < entries.size())
        entries.erase(entries.begin() + static_cast<std::ptrdiff_t>(row));
    return withoutRepeats(std::move(entries));
}

PlanEntries withRowMoved(PlanEntries entries, std::size_t row, std::size_t to) {
    if (row >= entries.size() || to >= entries.size())
        return entries;
    const auto at = [&](std::size_t index) {
        return entries.begin() + static_cast<std::ptrdiff_t>(index);
    };
    if (row < to)
        std::rotate(at(row), at(row + 1), at(to + 1));
    else
        std::rotate(at(to), at(row), at(row + 1));
    return withoutRepeats(std::move(entries));
}

PlanEditResult withAltitude(const PlanEntries& entries, std::size_t row, std::int32_t altitudeFt) {
    PlanEditResult edited{.entries = entries, .row = row};
    if (altitudeFt != kNoAltitudeFt &&
        (altitudeFt < kLowestPlannedFt || altitudeFt > kHighestPlannedFt)) {
        edited.error = text(kFlightTexts.invalidAltitude);
    } else if (row < entries.size()) {
        PlanWaypoint& entry = edited.entries[row];
        entry.altitudeFt = altitudeFt;
        entry.text = entry.key + altitudeSuffix(altitudeFt);
    }
    return edited;
}

}  // namespace korvel
