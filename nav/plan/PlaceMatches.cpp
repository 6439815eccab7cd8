#include "nav/plan/PlaceMatches.h"

#include <algorithm>
#include <limits>
#include <tuple>
#include <utility>

#include "base/Ascii.h"
#include "geo/Geodesy.h"
#include "navdb/NavDatabase.h"
#include "navdb/search/NameSearch.h"

namespace korvel {
namespace {

constexpr std::size_t kMostRows = 200;  ///< read for each kind and file
constexpr double kAroundNm = 150;
constexpr std::size_t kMostAround = 2000;

struct Candidate {
    Place place{};
    std::string town{};
    double distanceNm = std::numeric_limits<double>::infinity();
    bool isExact = false;    ///< spelled just so
    bool isCertain = false;  ///< and near enough to be meant

    [[nodiscard]] auto rank() const {
        return std::tuple(!isCertain, distanceNm, place.ident.view(), place.kind);
    }
};

void addAround(const NavDatabase& database, std::string_view beginning, GeoPoint near,
               KindMask kinds, std::vector<Place>& places) {
    for (const NearPlace& around : database.nearest(near, kinds, kMostAround, kAroundNm))
        if (around.place.ident.view().starts_with(beginning))
            places.push_back(around.place);
}

Candidate candidateFor(const Place& place, std::string town, std::string_view typed,
                       std::optional<GeoPoint> near) {
    Candidate candidate{.place = place, .town = std::move(town)};
    candidate.isExact = place.ident.view() == typed;
    if (near)
        candidate.distanceNm = DistanceNm(*near, place.position);
    candidate.isCertain = candidate.isExact && (!near || candidate.distanceNm <= kSurelyMeantNm);
    return candidate;
}

std::vector<Candidate> findCandidates(const NavDatabase& database, std::string_view typed,
                                      KindMask kinds, std::optional<GeoPoint> near,
                                      std::size_t limit) {
    std::vector<Place> places;
    if (!database.placesBeginning(typed, kinds, kMostRows, places) && near)
        addAround(database, typed, *near, kinds, places);
    std::vector<Candidate> candidates;
    candidates.reserve(places.size());
    for (const Place& place : places)
        candidates.push_back(candidateFor(place, {}, typed, near));
    for (NamedPlace& found : database.placesByName(typed, kinds, near, limit))
        candidates.push_back(candidateFor(found.place, std::move(found.town), typed, near));
    std::ranges::stable_sort(candidates, {}, &Candidate::rank);
    return candidates;
}

bool isSamePlace(const Candidate& a, const Candidate& b) {
    return a.place.kind == b.place.kind && a.place.ident == b.place.ident &&
           SamePoint(a.place.position, b.place.position);
}

/// What was found by its identifier and by its name, too, or as a row of two indexes, stays once.
/// The candidates are in the order of their ranks.
void dropRepeats(std::vector<Candidate>& candidates) {
    candidates.erase(std::unique(candidates.begin(), candidates.end(), isSamePlace),
                     candidates.end());
}

/// The nearest that is spelled just so stays even where many others are nearer.
void keepFirst(std::vector<Candidate>& candidates, std::size_t limit) {
    if (candidates.size() <= limit || limit == 0)
        return candidates.resize(std::min(candidates.size(), limit));
    const auto exact = std::ranges::find(candidates, true, &Candidate::isExact);
    if (exact - candidates.begin() >= static_cast<std::ptrdiff_t>(limit) &&
        exact != candidates.end())
        candidates[limit - 1] = std::move(*exact);
    candidates.resize(limit);
}

}  // namespace

std::vector<PlaceMatch> placeMatches(const NavDatabase& database, std::string_view typed,
                                     std::optional<GeoPoint> near, std::size_t limit) {
    const std::string beginning = inCapitals(identOfKey(typed));
    if (beginning.empty())
        return {};
    const KindMask kinds = kindsOfKey(typed);
    std::vector<Candidate> candidates = findCandidates(database, beginning, kinds, near, limit);
    dropRepeats(candidates);
    keepFirst(candidates, limit);
    std::vector<PlaceMatch> matches;
    for (const Candidate& candidate : candidates) {
        if (const auto record = database.recordOf(candidate.place)) {
            PlaceMatch match = matchOf(*record, near);
            match.town = candidate.town;
            match.isExact = candidate.isExact;
            matches.push_back(std::move(match));
        }
    }
    return matches;
}

const PlaceMatch* meantPlace(std::span<const PlaceMatch> matches) {
    const auto exact = std::ranges::find(matches, true, &PlaceMatch::isExact);
    return exact != matches.end() ? &*exact : nullptr;
}

PlaceMatch matchOf(const DatabaseRecord& record, std::optional<GeoPoint> near) {
    return {.key = record.key,
            .ident = std::string(record.ident.view()),
            .name = std::string(record.GetName()),
            .town = {},
            .kind = record.GetKind(),
            .position = record.position,
            .distanceNm = near ? std::optional(DistanceNm(*near, record.position)) : std::nullopt,
            .expired = record.pastDate,
            .isExact = false};
}

std::vector<PlaceMatch> withPrefixed(std::vector<PlaceMatch> matches,
                                     const std::vector<PlaceMatch>& prefixed) {
    constexpr std::size_t kMost = 4;
    std::size_t added = 0;
    for (const PlaceMatch& each : prefixed) {
        if (added < kMost &&
            std::ranges::find(matches, each.key, &PlaceMatch::key) == matches.end()) {
            matches.push_back(each);
            ++added;
        }
    }
    return matches;
}

}  // namespace korvel
