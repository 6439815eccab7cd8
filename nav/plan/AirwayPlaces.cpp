#include "nav/plan/AirwayPlaces.h"

#include <algorithm>
#include <cstddef>
#include <limits>
#include <string_view>
#include <utility>

#include "geo/Geodesy.h"
#include "nav/plan/GeneratedFixes.h"
#include "navdb/NavDatabase.h"

namespace korvel {
namespace {

using Record = std::shared_ptr<const DatabaseRecord>;

/// More places of one identifier in one file are not looked at.
constexpr std::size_t kMostNamesakes = 128;

/// A place that an identifier may mean.
struct Candidate {
    GeoPoint position;
    Place place{};
    Record record{};         ///< instead of a place
    double wayNm = 0.0;      ///< the shortest way to it along the piece
    std::size_t before = 0;  ///< the candidate of the identifier before, on that way
};
using Candidates = std::vector<Candidate>;

KindMask kindsOf(std::string_view key) {
    for (const KindMask kind : {kVorKind, kNdbKind, kFixKind, kAirportKind})
        if (hasKindPrefix(key) && key.front() == kindLetter(kind))
            return kind;
    return kAllKinds;
}

Candidates namesakes(std::string_view key, const NavDatabase& database) {
    std::vector<Place> places;
    const std::string_view ident = identOfKey(key);
    database.placesBeginning(ident, kindsOf(key), kMostNamesakes, places);
    Candidates found;
    Candidates airports;  // airways lead over them only where there is nothing else
    for (const Place& place : places) {
        if (place.ident.view() == ident && IsValid(place.position)) {
            auto& list = (place.kind & kAirportBit) != 0 ? airports : found;
            list.push_back({.position = place.position, .place = place});
        }
    }
    return found.empty() ? airports : found;
}

/// Finds the shortest way to each candidate; `before` are those of the identifier before it.
void reach(Candidates& candidates, const Candidates& before) {
    for (Candidate& candidate : candidates) {
        candidate.wayNm = std::numeric_limits<double>::max();
        for (std::size_t j = 0; j < before.size(); ++j) {
            const double way = before[j].wayNm + DistanceNm(before[j].position, candidate.position);
            if (way < candidate.wayNm) {
                candidate.wayNm = way;
                candidate.before = j;
            }
        }
    }
}

}  // namespace

std::vector<Record> placesAlong(std::span<const std::string> piece, std::span<const Record> known,
                                const NavDatabase& database, const GeneratedFixes& fixes) {
    std::vector<std::pair<std::size_t, Candidates>> steps;  // of those that are to be found
    for (std::size_t i = 0; i < piece.size(); ++i) {
        const Record record = known[i] ? known[i] : fixes.find(piece[i]);
        Candidates candidates = record
                                    ? Candidates{{.position = record->position, .record = record}}
                                    : namesakes(piece[i], database);
        if (candidates.empty())
            continue;
        if (!steps.empty())
            reach(candidates, steps.back().second);
        steps.emplace_back(i, std::move(candidates));
    }
    std::vector<Record> records(piece.size());
    if (steps.empty())
        return records;
    auto chosen = std::ranges::min_element(steps.back().second, {}, &Candidate::wayNm) -
                  steps.back().second.begin();
    for (auto step = steps.rbegin(); step != steps.rend(); ++step) {
        const Candidate& candidate = step->second[static_cast<std::size_t>(chosen)];
        records[step->first] =
            candidate.record ? candidate.record : database.recordOf(candidate.place);
        chosen = static_cast<std::ptrdiff_t>(candidate.before);
    }
    return records;
}

}  // namespace korvel
