#include "nav/plan/PlaceMatches.h"

#include <algorithm>
#include <limits>
#include <tuple>
#include <utility>

#include "base/Ascii.h"
#include "geo/Geodesy.h"
#include "navdb/NavDatabase.h"

namespace korvel {
namespace {

constexpr std::size_t kMostRows = 200;  ///< read for each kind and file
constexpr double kAroundNm = 150;
constexpr std::size_t kMostAround = 2000;

struct Candidate {
    Place place{};
    double distanceNm = std::numeric_limits<double>::infinity();
    bool isExact = false;

    [[nodiscard]] auto rank() const {
        return std::tuple(!isExact, distanceNm, place.ident.view(), place.kind);
    }
};

KindMask kindsOfLetter(char letter) {
    for (const KindMask kind : {kVorKind, kNdbKind, kFixKind, kAirportKind})
        if (kindLetter(kind) == letter)
            return kind;
    return kAllKinds;
}

void addAround(const NavDatabase& database, std::string_view beginning, GeoPoint near,
               KindMask kinds, std::vector<Place>& places) {
    for (const NearPlace& around : database.nearest(near, kinds, kMostAround, kAroundNm))
        if (around.place.ident.view().starts_with(beginning))
            places.push_back(around.place);
}

bool isSamePlace(const Candidate& a, const Candidate& b) {
    return a.place.kind == b.place.kind && a.place.ident.view() == b.place.ident.view() &&
           SamePoint(a.place.position, b.place.position);
}

}  // namespace

std::vector<PlaceMatch> placeMatches(const NavDatabase& database, std::string_view typed,
                                     std::optional<GeoPoint> near, std::size_t limit) {
    const std::string beginning = inCapitals(identOfKey(typed));
    if (beginning.empty())
        return {};
    const KindMask kinds = hasKindPrefix(typed) ? kindsOfLetter(typed.front()) : kAllKinds;
    std::vector<Place> places;
    if (!database.placesBeginning(beginning, kinds, kMostRows, places) && near)
        addAround(database, beginning, *near, kinds, places);
    std::vector<Candidate> candidates;
    for (const Place& place : places) {
        Candidate candidate{.isExact = place.ident.view() == beginning};
        if (near)
            candidate.distanceNm = DistanceNm(*near, place.position);
        candidate.place = place;
        candidates.push_back(candidate);
    }
    std::ranges::sort(candidates, {}, &Candidate::rank);
    candidates.erase(std::unique(candidates.begin(), candidates.end(), isSamePlace),
                     candidates.end());
    candidates.resize(std::min(candidates.size(), limit));
    std::vector<PlaceMatch> matches;
    for (const Candidate& candidate : candidates) {
        if (const auto record = database.recordOf(candidate.place)) {
            matches.push_back(
                {.key = record->key,
                 .ident = std::string(record->ident.view()),
                 .name = std::string(record->GetName()),
                 .kind = candidate.place.kind,
                 .position = record->position,
                 .distanceNm = near ? std::optional(candidate.distanceNm) : std::nullopt,
                 .expired = record->expired});
        }
    }
    return matches;
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
