#include "navdb/search/TownSearch.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "geo/Geodesy.h"
#include "navdb/file/DatabaseFile.h"
#include "navdb/file/DatabaseTables.h"
#include "navdb/records/AirportRecord.h"
#include "navdb/search/NameWords.h"
#include "navdb/search/PlaceRows.h"

namespace korvel {
namespace {

constexpr std::size_t kMostRows = 20000;  // of one word
constexpr std::int32_t kCitySize = 1;
constexpr std::size_t kMostTowns = 6;
constexpr std::size_t kMostAroundTown = 200;
constexpr std::size_t kMostOfTown = 3;
constexpr std::size_t kMostOfCity = 6;
constexpr double kNmPerDegree = 60;
constexpr double kTownNm = 10;
constexpr double kCityNm = 25;

struct NamedTown {
    std::string name;
    GeoPoint position;
    bool isCity = false;
};

/// The first towns in whose names words begin with each of `words`: the nearest first or, without
/// a reference position, cities first.
std::vector<NamedTown> findTowns(const DatabaseFile& file, std::span<const std::string> words,
                                 std::optional<GeoPoint> near) {
    const IndexEntry* const index = file.index("TwnKey");
    const FieldEntry* const order = index != nullptr ? orderingField(*index) : nullptr;
    if (order == nullptr || words.empty())
        return {};
    const FieldEntry* const name = index->table->field(packName("NAME"));
    const FieldEntry* const size = index->table->field(packName("SIZE"));
    const PlaceFields fields(*index->table);
    const auto rows = file.rows();
    std::string text;
    std::vector<std::pair<double, NamedTown>> ranked;
    const std::uint32_t first = rows->firstNotBelow(*index, *order, words.front());
    for (std::uint32_t row = first; row - first < kMostRows && row < index->rowCount(); ++row) {
        if (!rows->load(*index, row))
            break;
        rows->text(order, text);
        if (!text.starts_with(words.front()))
            break;
        rows->text(name, text);
        NamedTown town{.name = text,
                       .position = positionOfRow(*rows, fields),
                       .isCity = rows->word(size).value_or(0) == kCitySize};
        if (!IsValid(town.position) || (words.size() > 1 && !hasWords(text, words)))
            continue;
        const double rank = near ? DistanceNm(*near, town.position) : (town.isCity ? 0.0 : 1.0);
        ranked.emplace_back(rank, std::move(town));
    }
    std::ranges::stable_sort(ranked, {}, &std::pair<double, NamedTown>::first);
    std::vector<NamedTown> towns;
    for (std::size_t i = 0; i < std::min(ranked.size(), kMostTowns); ++i)
        towns.push_back(std::move(ranked[i].second));
    return towns;
}

/// The few airports of a town that a traveller would look for.
std::vector<NearPlace> airportsOf(const PlaceSources& sources, const NamedTown& town) {
    constexpr unsigned kNotForAll = kAirportHeliport | kAirportPrivate | kAirportSeaplaneBase;
    const double reachNm = town.isCity ? kCityNm : kTownNm;
    const double lat = town.position.lat * kRadToDeg;
    const double lon = town.position.lon * kRadToDeg;
    const double high = reachNm / kNmPerDegree;
    const double wide = high / std::max(std::cos(town.position.lat), 0.1);
    std::vector<Place> around;
    findPlacesIn(
        sources, {.south = lat - high, .west = lon - wide, .north = lat + high, .east = lon + wide},
        kAirportKind, kMostAroundTown,
        [](const Place& place) { return (place.flags & kNotForAll) == 0; }, around);
    std::vector<NearPlace> airports;
    airports.reserve(around.size());
    for (const Place& place : around)
        airports.push_back(
            {.place = place, .distanceNm = DistanceNm(town.position, place.position)});
    // Those with a tower and a hard runway first: whoever looks by a town means its airport.
    std::ranges::stable_sort(airports, {}, [](const NearPlace& near) {
        constexpr unsigned kLarge = kAirportTower | kAirportHardSurface;
        return std::pair((near.place.flags & kLarge) != kLarge, near.distanceNm);
    });
    airports.resize(std::min(airports.size(), town.isCity ? kMostOfCity : kMostOfTown));
    return airports;
}

}  // namespace

void addAirportsOfTowns(const PlaceSources& sources, const DatabaseFile& towns,
                        std::span<const std::string> words, std::optional<GeoPoint> near,
                        std::vector<NamedPlace>& places) {
    for (const NamedTown& town : findTowns(towns, words, near)) {
        for (const NearPlace& airport : airportsOf(sources, town)) {
            const Place& place = airport.place;
            const bool isThere = std::ranges::any_of(places, [&place](const NamedPlace& each) {
                return each.place.kind == place.kind && each.place.ident == place.ident &&
                       SamePoint(each.place.position, place.position);
            });
            if (!isThere)
                places.push_back({.place = place,
                                  .town = town.name,
                                  .distanceNm = near ? DistanceNm(*near, place.position) : 0.0});
        }
    }
}

}  // namespace korvel
