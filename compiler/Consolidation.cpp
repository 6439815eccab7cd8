#include "compiler/Consolidation.h"

#include <algorithm>
#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <utility>
#include <vector>

#include "compiler/sources/VariationField.h"

namespace korvel {

namespace {

bool isNdb(const SourceNavaid& navaid) {
    return navaid.kind == NavaidKind::Ndb || navaid.kind == NavaidKind::NdbDme;
}

bool isDmeOnly(const SourceNavaid& navaid) { return navaid.kind == NavaidKind::DmeOnly; }

/// The places of a list by identifier. The list must not grow or shrink while this is in use.
template <class Place>
class ByIdent {
 public:
    explicit ByIdent(std::vector<Place>& places) : places_(places) {
        for (std::size_t i = 0; i < places.size(); ++i)
            indexes_[places[i].ident].push_back(i);
    }
    /// The first place of that name that `matches`; null when there is none.
    template <class Matches>
    Place* find(const std::string& ident, Matches matches) {
        const auto found = indexes_.find(ident);
        if (found == indexes_.end())
            return nullptr;
        for (const std::size_t i : found->second)
            if (matches(places_[i]))
                return &places_[i];
        return nullptr;
    }

 private:
    std::vector<Place>& places_;
    std::unordered_map<std::string, std::vector<std::size_t>> indexes_;
};

/// Keeps the first of the places that `same` says are one, and hands the others to `merge`.
template <class Place, class Same, class Merge>
std::size_t dropRepeats(std::vector<Place>& places, Same same, Merge merge) {
    std::unordered_map<std::string, std::vector<std::size_t>> kept;
    std::size_t write = 0;
    for (std::size_t read = 0; read < places.size(); ++read) {
        auto& namesakes = kept[places[read].ident];
        const auto first = std::find_if(namesakes.begin(), namesakes.end(), [&](std::size_t i) {
            return same(places[i], places[read]);
        });
        if (first != namesakes.end()) {
            merge(places[*first], places[read]);
            continue;
        }
        namesakes.push_back(write);
        if (write != read)
            places[write] = std::move(places[read]);
        ++write;
    }
    const std::size_t dropped = places.size() - write;
    places.erase(places.begin() + static_cast<std::ptrdiff_t>(write), places.end());
    return dropped;
}

void joinDme(AviationData& data) {
    ByIdent navaids(data.navaids);
    std::vector<bool> joined(data.navaids.size(), false);
    for (std::size_t i = 0; i < data.navaids.size(); ++i) {
        const SourceNavaid& dme = data.navaids[i];
        if (!isDmeOnly(dme))
            continue;
        SourceNavaid* const station = navaids.find(dme.ident, [&](const SourceNavaid& other) {
            return !isDmeOnly(other) && samePlace(other.position, dme.position);
        });
        if (station == nullptr)
            continue;
        joined[i] = true;
        if (station->kind == NavaidKind::Vor)
            station->kind = NavaidKind::VorDme;
        else if (station->kind == NavaidKind::Ndb)
            station->kind = NavaidKind::NdbDme;
    }
    std::size_t i = 0;
    std::erase_if(data.navaids, [&](const SourceNavaid&) { return joined[i++]; });
}

void dropAllRepeats(AviationData& data, ImportLog& log) {
    log.leftOut("airports whose identifier is taken",
                dropRepeats(
                    data.airports, [](const auto&, const auto&) { return true; },
                    [](auto&, const auto&) {}));
    log.leftOut("navaids given twice", dropRepeats(
                                           data.navaids,
                                           [](const SourceNavaid& a, const SourceNavaid& b) {
                                               return isNdb(a) == isNdb(b) &&
                                                      isDmeOnly(a) == isDmeOnly(b) &&
                                                      samePlace(a.position, b.position);
                                           },
                                           [](auto&, const auto&) {}));
    // The procedures of several airports name one fix each for itself; used en route counts more.
    log.leftOut("fixes given twice", dropRepeats(
                                         data.fixes,
                                         [](const SourceFix& a, const SourceFix& b) {
                                             return samePlace(a.position, b.position);
                                         },
                                         [](SourceFix& kept, const SourceFix& other) {
                                             if (kept.usage == kUsageTerminal)
                                                 kept.usage = other.usage;
                                         }));
}

Usage usageOf(const AirwayPoint& point) {
    if (point.onHigh)
        return point.onLow ? kUsageBoth : kUsageHigh;
    return kUsageLow;
}

bool fits(const AirwayPoint& point, const SourceFix& fix) {
    if (point.type == AirwayPointType::Unknown)
        return point.position && samePlace(*point.position, fix.position);
    return point.type == AirwayPointType::Fix && point.region == fix.region;
}

bool fits(const AirwayPoint& point, const SourceNavaid& navaid) {
    if (point.type == AirwayPointType::Unknown)
        return point.position && samePlace(*point.position, navaid.position);
    return point.type == (isNdb(navaid) ? AirwayPointType::Ndb : AirwayPointType::Vhf) &&
           point.region == navaid.region;
}

/// Ties airway points to places, and gives every airway point that has none a fix of its own.
void resolveAirwayPoints(AviationData& data, ImportLog& log) {
    ByIdent fixes(data.fixes);
    ByIdent navaids(data.navaids);
    std::vector<SourceFix> added;
    for (AirwayPoint& point : data.airways.points()) {
        SourceFix* const fix = fixes.find(
            point.ident, [&](const SourceFix& each) { return fits(point, each); });
        const SourceNavaid* const navaid =
            navaids.find(point.ident, [&](const SourceNavaid& each) { return fits(point, each); });
        if (fix != nullptr) {
            point.position = fix->position;
            if (fix->usage != kUsageVisual)
                fix->usage = usageOf(point);
        } else if (navaid != nullptr) {
            point.position = navaid->position;
        }
        if (fix != nullptr || (navaid != nullptr && !isDmeOnly(*navaid)))
            continue;
        if (point.position) {
            added.push_back({point.ident, point.region, *point.position, usageOf(point)});
            log.took(navaid != nullptr ? "fixes at stations left out that lie on airways"
                                       : "fixes that only the airways know");
        } else {
            log.leftOut("positions of airway points that no file gives");
        }
    }
    data.fixes.insert(data.fixes.end(), std::make_move_iterator(added.begin()),
                      std::make_move_iterator(added.end()));
}

/// Without an airway, a fix serves an airport's procedures; where the source says that it is used
/// en route, or there are no airways to tell, it stands on the low charts.
void settleUsage(AviationData& data) {
    const bool airwaysTell = !data.airways.airways().empty();
    for (SourceFix& fix : data.fixes)
        if (!fix.usage)
            fix.usage = airwaysTell && fix.region.empty() ? kUsageTerminal : kUsageLow;
}

}  // namespace

void consolidate(AviationData& data, ImportLog& log) {
    joinDme(data);
    dropAllRepeats(data, log);
    resolveAirwayPoints(data, log);
    settleUsage(data);
    log.leftOut("DME and TACAN stations without a VOR or NDB",
                std::erase_if(data.navaids, isDmeOnly));
    const VariationField field(data.navaids);
    for (SourceAirport& airport : data.airports)
        if (!airport.variation)
            airport.variation = field.at(airport.position);
}

void keepAirways(AviationData& past, AviationData& today, ImportLog& log) {
    ByIdent fixes(past.fixes);
    ByIdent navaids(today.navaids);
    std::vector<SourceFix> added;
    for (const AirwayPoint& point : past.airways.points()) {
        const auto isThere = [&point](const auto& place) {
            return samePlace(*point.position, place.position);
        };
        if (!point.position || fixes.find(point.ident, isThere) != nullptr ||
            navaids.find(point.ident, isThere) != nullptr)
            continue;
        added.push_back({point.ident, point.region, *point.position, usageOf(point)});
        log.took("fixes at stations that are no more, which lie on airways");
    }
    past.fixes.insert(past.fixes.end(), added.begin(), added.end());
    past.airports.clear();
    past.navaids.clear();
}

}  // namespace korvel
