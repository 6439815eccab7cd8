#include "map/feeds/PlaceFeed.h"

#include <algorithm>
#include <cmath>
#include <tuple>

#include "cockpit/PlaceDetails.h"
#include "geo/Geodesy.h"
#include "geo/Longitude.h"
#include "geo/WholeDegreeTrig.h"
#include "map/MapContent.h"
#include "map/MapView.h"
#include "navdb/NavDatabase.h"

namespace korvel {
namespace {

constexpr double kNmPerDegree = 60;
constexpr double kFullTurnDeg = 360;
constexpr double kFetchedBeyondView = 0.3;  // of the view's radius
/// More places than any view has; beyond that a database is not what it should be.
constexpr std::size_t kMostRows = 60000;
constexpr int kFrequenciesToNm = 65;
constexpr double kVariationReachNm = 60;
constexpr std::size_t kMostDetailsKept = 6000;

/// The places of one kind that are kept, after the less important ones were left out.
struct KindCap {
    KindMask kinds;
    int toNm;  ///< no place of this kind shows beyond
    std::size_t most;
};
constexpr std::array kCaps{KindCap{kAirportKind, 1000, 1500},
                           KindCap{kVorKind | kNdbKind, 250, 600}, KindCap{kFixKind, 25, 1500}};

/// The same order whenever the same places are there: names must not jump from frame to frame.
bool isMoreImportant(const MapPlace& a, const MapPlace& b) {
    if (a.rank != b.rank)
        return a.rank > b.rank;
    return std::tuple(a.place.ident.view(), a.place.match, a.place.position.lat) <
           std::tuple(b.place.ident.view(), b.place.match, b.place.position.lat);
}

/// `all`: there are few enough of them to read every airport's.
bool needsDetails(const MapPlace& each, int rangeNm, bool all) {
    if (each.details)
        return false;
    if (isAirport(each.placeClass))
        return all || each.placeClass == PlaceClass::TowerAirport;
    return each.place.kind != kFixKind && rangeNm <= kFrequenciesToNm;
}

}  // namespace

GeoBox boxAround(const MapView& view, double share) {
    const MapProjection& projection = view.projection;
    const Rect& area = view.area;
    const Point aircraft = projection.aircraft();
    const double reachPx = std::hypot(std::max(aircraft.x - area.x, area.right() - aircraft.x),
                                      std::max(aircraft.y - area.y, area.bottom() - aircraft.y));
    const double height = reachPx * (1 + share) / projection.pixelsPerNm() / kNmPerDegree;
    const double lat = projection.center().lat * kRadToDeg;
    const double lon = projection.center().lon * kRadToDeg;
    GeoBox box{.south = std::max(lat - height, -90.0), .north = std::min(lat + height, 90.0)};
    // The map's own miles per degree of longitude, whatever the latitude at its edge.
    const double lonScale = CosDeg(RoundToInt(lat));
    if (height >= kFullTurnDeg / 2 * lonScale) {
        box.west = -kFullTurnDeg / 2;
        box.east = kFullTurnDeg / 2;
        return box;
    }
    box.west = wrappedLongitudeDeg(lon - height / lonScale);
    box.east = wrappedLongitudeDeg(lon + height / lonScale);
    return box;
}

bool holds(const GeoBox& outer, const GeoBox& inner) {
    if (inner.south < outer.south || inner.north > outer.north)
        return false;
    return outer.widthDeg() >= kFullTurnDeg ||
           PositiveMod(inner.west - outer.west, kFullTurnDeg) + inner.widthDeg() <=
               outer.widthDeg();
}

bool PlaceFeed::update(const FeedRequest& request) {
    const auto& [view, data, settings] = request;
    const int rangeNm = view.rangeNm;
    const MapPlaceOptions options = MapPlaceOptions::from(settings);
    if (view.projection.pixelsPerNm() <= 0 || !IsValid(view.projection.center()))
        return false;
    const bool fetchedAgain = !fetched_ || rangeNm != rangeNm_ || options != set_.options ||
                              !holds(*fetched_, boxAround(view, 0));
    if (fetchedAgain)
        fetch(boxAround(view, kFetchedBeyondView), rangeNm, options);
    const bool hasRead = !complete_ && readDetails(rangeNm);
    return fetchedAgain || hasRead;
}

void PlaceFeed::forget() {
    set_.places.clear();
    details_.clear();
    fetched_.reset();
    complete_ = false;
}

void PlaceFeed::addTo(MapContent& content) const { content.places = &set_; }

void PlaceFeed::fetch(const GeoBox& box, int rangeNm, const MapPlaceOptions& options) {
    set_.places.clear();
    if (details_.size() > kMostDetailsKept)
        std::erase_if(details_, [](const auto& entry) { return entry.second.use_count() == 1; });
    set_.options = options;
    fetched_ = box;
    rangeNm_ = rangeNm;
    complete_ = false;
    const auto isWanted = [&](const Place& place) {
        return isShown(place, classOf(place), rangeNm, options);
    };
    for (const KindCap& cap : kCaps) {
        if (rangeNm <= cap.toNm)
            database_.placesIn(box, cap.kinds, kMostRows, found_, isWanted);
        else if (cap.kinds == kFixKind)  // the pilot's own show farther out
            database_.userPlacesIn(box, kFixKind, found_);
        else
            continue;
        addFound(cap.most, rangeNm);
    }
    rankPlaces();
}

void PlaceFeed::addFound(std::size_t most, int rangeNm) {
    const auto first = static_cast<std::ptrdiff_t>(set_.places.size());
    set_.places.reserve(set_.places.size() + found_.size());
    for (const Place& place : found_) {
        const PlaceClass placeClass = classOf(place);
        if (!isShown(place, placeClass, rangeNm, set_.options))
            continue;
        const auto known = details_.find({place.match, std::string(place.ident.view())});
        set_.places.push_back({.place = place,
                               .placeClass = placeClass,
                               .rank = ruleOf(placeClass).rank,
                               .details = known != details_.end() ? known->second : nullptr});
        if (known != details_.end())
            set_.places.back().rank += known->second->longestRunwayFt;
    }
    const auto added = set_.places.begin() + first;
    if (static_cast<std::size_t>(set_.places.end() - added) > most) {
        const auto cut = added + static_cast<std::ptrdiff_t>(most);
        std::nth_element(added, cut, set_.places.end(), isMoreImportant);
        set_.places.erase(cut, set_.places.end());
    }
}

/// Reads the next few records, the most important places' first; true when one was read.
bool PlaceFeed::readDetails(int rangeNm) {
    const bool all = rangeNm < kNamedOnlyFromNm || set_.places.size() <= kRecordsPerUpdate;
    std::size_t count = 0;
    for (MapPlace& each : set_.places) {
        if (!needsDetails(each, rangeNm, all))
            continue;
        if (count++ == kRecordsPerUpdate)
            break;
        each.details = readPlaceDetails(database_, each.place);
        each.rank += each.details->longestRunwayFt;
        details_[{each.place.match, std::string(each.place.ident.view())}] = each.details;
    }
    complete_ = count <= kRecordsPerUpdate;
    if (complete_)
        giveVariations(rangeNm);
    if (count > 0)
        rankPlaces();
    return count > 0;
}

/// A rose points to the magnetic north of its VOR. Records of navaids do not tell; the nearest
/// airport's does.
void PlaceFeed::giveVariations(int rangeNm) {
    if (rangeNm > kRosesToNm)
        return;
    for (MapPlace& vor : set_.places) {
        if (!isVor(vor.placeClass))
            continue;
        double nearestNm = kVariationReachNm;
        for (const MapPlace& airport : set_.places) {
            if (!airport.details || !airport.details->variationDeg)
                continue;
            const double awayNm = DistanceNm(vor.place.position, airport.place.position);
            if (awayNm < nearestNm) {
                nearestNm = awayNm;
                vor.variationDeg = airport.details->variationDeg;
            }
        }
        if (!vor.variationDeg)
            vor.variationDeg = database_.variationAt(vor.place.position);
    }
}

void PlaceFeed::rankPlaces() { std::sort(set_.places.begin(), set_.places.end(), isMoreImportant); }

}  // namespace korvel
