#include "nav/plan/AirwayPlaces.h"

#include <algorithm>
#include <cstddef>
#include <limits>
#include <optional>
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

Candidates namesakes(std::string_view key, const NavDatabase& database) {
    std::vector<Place> places;
    const KindMask kinds = kindsOfKey(key);
    // Airways lead over airports only where there is nothing else.
    for (const KindMask group : {kinds & ~kAirportKind, kinds & kAirportKind}) {
        if (places.empty() && group != 0) {
            database.placesNamed(identOfKey(key), group, kMostNamesakes, places);
            std::erase_if(places, [](const Place& place) { return !IsValid(place.position); });
        }
    }
    Candidates found;
    found.reserve(places.size());
    for (const Place& place : places)
        found.push_back({.position = place.position, .place = place});
    return found;
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

/// The places that the identifiers of a piece may mean, looked up when they are asked for.
class Steps {
 public:
    Steps(std::span<const std::string> piece, std::span<const Record> known,
          const NavDatabase& database, const GeneratedFixes& fixes)
        : piece_(piece), known_(known), database_(database), fixes_(fixes), steps_(piece.size()) {}

    Candidates& at(std::size_t i) {
        if (!steps_[i]) {
            const Record record = known_[i] ? known_[i] : fixes_.find(piece_[i]);
            steps_[i] = record ? Candidates{{.position = record->position, .record = record}}
                               : namesakes(piece_[i], database_);
        }
        return *steps_[i];
    }

    /// The nearest step from there on, backwards or forwards, where there is nothing to choose:
    /// what lies beyond it changes no choice on this side. The end of the piece if there is none.
    std::size_t anchorBefore(std::size_t i) {
        while (i > 0 && at(i).size() != 1)
            --i;
        return i;
    }
    std::size_t anchorBehind(std::size_t i) {
        while (i + 1 < piece_.size() && at(i).size() != 1)
            ++i;
        return i;
    }

 private:
    std::span<const std::string> piece_;
    std::span<const Record> known_;
    const NavDatabase& database_;
    const GeneratedFixes& fixes_;
    std::vector<std::optional<Candidates>> steps_;
};

}  // namespace

std::vector<Record> placesAlong(std::span<const std::string> piece, std::span<const Record> known,
                                PieceRange wanted, const NavDatabase& database,
                                const GeneratedFixes& fixes) {
    std::vector<Record> records(piece.size());
    Steps steps(piece, known, database, fixes);
    const std::size_t last = steps.anchorBehind(wanted.last);
    std::vector<std::size_t> way;  // the steps that lead over a place
    for (std::size_t i = steps.anchorBefore(wanted.first); i <= last; ++i) {
        if (steps.at(i).empty())
            continue;
        if (!way.empty())
            reach(steps.at(i), steps.at(way.back()));
        way.push_back(i);
    }
    if (way.empty())
        return records;
    const Candidates& ends = steps.at(way.back());
    auto chosen = static_cast<std::size_t>(std::ranges::min_element(ends, {}, &Candidate::wayNm) -
                                           ends.begin());
    // NOLINTNEXTLINE(modernize-loop-convert): not every compiler can turn a view around
    for (auto i = way.rbegin(); i != way.rend(); ++i) {
        const Candidate& candidate = steps.at(*i)[chosen];
        if (*i >= wanted.first && *i <= wanted.last)
            records[*i] = candidate.record ? candidate.record : database.recordOf(candidate.place);
        chosen = candidate.before;
    }
    return records;
}

}  // namespace korvel
