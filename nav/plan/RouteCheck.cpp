#include "nav/plan/RouteCheck.h"

#include <algorithm>

#include "config/Text.h"
#include "config/texts/FlightTexts.h"
#include "geo/Geodesy.h"
#include "nav/plan/FlightPlan.h"
#include "nav/plan/GeneratedFixes.h"
#include "nav/plan/PlaceLookup.h"
#include "nav/plan/PlanHints.h"
#include "nav/plan/RouteEntry.h"
#include "navdb/NavDatabase.h"
#include "navdb/search/Editions.h"

namespace korvel {
namespace {

constexpr std::size_t kMostNamesakes = 32;
constexpr double kAnywhereNm = 99999;  // farther than anything

CheckedWord checkWord(const std::string& text, bool isFirst, const NavDatabase& database,
                      PlaceLookup& lookup) {
    const RouteWord word = RouteWord::parse(text);
    CheckedWord checked{.word = text, .altitudeFt = word.altitudeFt, .record = {}, .message = {}};
    if (word.unreadable) {
        checked.kind = CheckedWord::Kind::BadAltitude;
        checked.message = korvel::text(kFlightTexts.invalidAltitude);
        return checked;
    }
    if (!word.isAirway) {
        checked.record = lookup.next(word.ident);
        if (checked.record) {
            checked.kind = CheckedWord::Kind::Place;
            return checked;
        }
    }
    std::vector<std::string> routes;
    database.GetAirwayRoutes(word.ident, routes);
    if (!isFirst && !routes.empty()) {
        checked.kind = CheckedWord::Kind::Airway;
        return checked;
    }
    checked.record = word.isAirway ? nullptr : lookup.peekPrefixed(word.ident);
    if (checked.record) {
        checked.kind = CheckedWord::Kind::Place;
        lookup.moveTo(checked.record->position);
    } else {
        checked.message = formatText(kFlightTexts.navaidOrAirwayNotFound, {word.ident});
    }
    return checked;
}

/// The places of a word, those within a mile of each other as one.
std::vector<PlaceMatch> namesakes(std::string_view text, const NavDatabase& database,
                                  std::optional<GeoPoint> near) {
    const RouteWord word = RouteWord::parse(text);
    std::vector<Place> found;
    std::vector<PlaceMatch> places;
    if (word.isAirway)
        return places;
    database.placesNamed(identOfKey(word.ident), kindsOfKey(word.ident), kMostNamesakes, found);
    for (const Place& place : found) {
        const bool isThere = std::ranges::any_of(places, [&place](const PlaceMatch& each) {
            return DistanceNm(each.position, place.position) <= kSamePlaceNm;
        });
        const auto record = isThere ? nullptr : database.recordOf(place);
        if (record && IsValid(record->position))
            places.push_back(matchOf(*record, near));
    }
    return places;
}

/// How far the first word behind the first that is a place is from there.
std::optional<double> distanceToNext(GeoPoint from, const std::vector<std::string>& words,
                                     NavDatabase& database) {
    for (std::size_t i = 1; i < words.size(); ++i) {
        const RouteWord word = RouteWord::parse(words[i]);
        const DatabaseRecord* const next =
            word.isAirway ? nullptr : database.Find(word.ident, from);
        if (next != nullptr && IsValid(next->position))
            return DistanceNm(from, next->position);
    }
    return std::nullopt;
}

}  // namespace

RouteCheck checkRoute(std::string_view line, NavDatabase& database, const GeneratedFixes& fixes,
                      const RouteGround& ground, DistanceUnit unit) {
    RouteCheck check;
    PlaceLookup lookup(database, fixes, ground.present);
    lookup.setIcaoPrefix(ground.icaoPrefix);
    for (const std::string& word : SplitWords(line))
        check.words.push_back(checkWord(word, check.words.empty(), database, lookup));
    GeneratedFixes scratch = fixes;
    RouteEntry entry(database, scratch, ground.present, ground.icaoPrefix);
    RouteResult result = entry.EnterRoute(line, true);
    check.error = std::move(result.error);
    if (check.error.empty()) {
        check.count = result.entries.size();
        check.hints = planHints(result.entries, unit);
        check.totalNm = FlightPlan(std::move(result.entries)).totalNm();
        return check;
    }
    // A word may be known and yet not lead on: say so at the word.
    check.errorWord = result.errorWord;
    if (check.errorWord < check.words.size())
        check.words[check.errorWord].message = check.error;
    return check;
}

std::vector<PlaceMatch> firstPlaces(std::string_view line, NavDatabase& database,
                                    std::optional<GeoPoint> present) {
    const std::vector<std::string> words = SplitWords(line);
    if (words.empty())
        return {};
    std::vector<PlaceMatch> places = namesakes(words.front(), database, present);
    const bool isCertain = std::ranges::any_of(places, [](const PlaceMatch& place) {
        return place.distanceNm.value_or(kAnywhereNm) <= kSurelyMeantNm;
    });
    if (places.size() < 2 || isCertain)
        return {};
    for (PlaceMatch& place : places)
        place.distanceNm = distanceToNext(place.position, words, database);
    std::ranges::stable_sort(
        places, {}, [](const PlaceMatch& place) { return place.distanceNm.value_or(kAnywhereNm); });
    return places;
}

}  // namespace korvel
