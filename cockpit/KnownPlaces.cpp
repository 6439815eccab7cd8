#include "cockpit/KnownPlaces.h"

#include <algorithm>

#include "base/TextNumbers.h"
#include "config/ProfileFile.h"
#include "geo/Geodesy.h"
#include "nav/plan/RouteWords.h"
#include "navdb/NavDatabase.h"
#include "navdb/search/Editions.h"

namespace korvel {
namespace {

constexpr std::string_view kSection = "Places";
constexpr std::string_view kRecent = "Recent";
constexpr std::string_view kFavourite = "Favourite";

std::string nameOf(std::string_view name, std::size_t index) {
    return std::string(name) + formatInt(static_cast<long long>(index) + 1);
}

void add(std::vector<KnownPlace>& offered, PlaceMatch match, KnownPlace::Reason reason) {
    const bool isThere = std::ranges::any_of(offered, [&match](const KnownPlace& each) {
        return each.match.key == match.key && SamePoint(each.match.position, match.position);
    });
    if (!isThere)
        offered.push_back({.match = std::move(match), .reason = reason});
}

}  // namespace

KnownPlaces::KnownPlaces(ProfileFile& profile)
    : profile_(profile),
      recent_(load(kRecent, kMostRecent)),
      favourites_(load(kFavourite, kMostFavourites)) {}

KnownPlaces::List KnownPlaces::load(std::string_view name, std::size_t most) const {
    List list;
    for (std::size_t i = 0; i < most; ++i) {
        const std::string entry = profile_.getString(kSection, nameOf(name, i), "");
        const std::size_t space = std::min(entry.find(' '), entry.size());
        Kept kept{.key = entry.substr(0, space),
                  .position = parsePositionText(entry.substr(space))};
        if (hasKindPrefix(kept.key) && IsValid(kept.position))
            list.push_back(std::move(kept));
    }
    return list;
}

void KnownPlaces::store(std::string_view name, const List& list, std::size_t most) {
    for (std::size_t i = 0; i < most; ++i) {
        const std::string entry =
            i < list.size() ? list[i].key + ' ' + positionText(list[i].position) : "";
        profile_.setString(kSection, nameOf(name, i), entry, true);
    }
}

bool KnownPlaces::isSame(const Kept& kept, std::string_view key, GeoPoint position) {
    return kept.key == key && DistanceNm(kept.position, position) <= kSamePlaceNm;
}

void KnownPlaces::moveToFront(List& list, const DatabaseRecord& place, std::size_t most) {
    std::erase_if(list,
                  [&place](const Kept& kept) { return isSame(kept, place.key, place.position); });
    list.insert(list.begin(), {.key = place.key, .position = place.position});
    list.resize(std::min(list.size(), most));
}

void KnownPlaces::note(const DatabaseRecord& place) {
    if (!IsValid(place.position))
        return;
    moveToFront(recent_, place, kMostRecent);
    store(kRecent, recent_, kMostRecent);
}

bool KnownPlaces::isFavourite(const DatabaseRecord& place) const {
    return std::ranges::any_of(
        favourites_,
        [&place](const Kept& kept) { return isSame(kept, place.key, place.position); });
}

void KnownPlaces::setFavourite(const DatabaseRecord& place, bool on) {
    if (!IsValid(place.position))
        return;
    moveToFront(favourites_, place, kMostFavourites);
    if (!on)
        favourites_.erase(favourites_.begin());
    store(kFavourite, favourites_, kMostFavourites);
}

std::vector<KnownPlace> KnownPlaces::offered(NavDatabase& database,
                                             std::span<const PlanWaypoint> plan,
                                             std::optional<GeoPoint> near) const {
    std::vector<KnownPlace> offered;
    const auto addKept = [&](const List& list, KnownPlace::Reason reason) {
        for (const Kept& kept : list) {
            const DatabaseRecord* const place = database.Find(kept.key, kept.position);
            if (place != nullptr && isSame(kept, place->key, place->position))
                add(offered, matchOf(*place, near), reason);
        }
    };
    addKept(recent_, KnownPlace::Reason::Recent);
    List favourites = favourites_;
    std::ranges::sort(favourites, {}, &Kept::key);
    addKept(favourites, KnownPlace::Reason::Favourite);
    for (const PlanWaypoint& entry : plan)
        add(offered, matchOf(*entry.record, near), KnownPlace::Reason::InPlan);
    return offered;
}

}  // namespace korvel
