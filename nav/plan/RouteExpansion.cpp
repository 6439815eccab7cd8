#include "nav/plan/RouteExpansion.h"

#include <algorithm>
#include <iterator>
#include <span>
#include <utility>

#include "config/Text.h"
#include "config/texts/FlightTexts.h"
#include "nav/plan/AirwayCrossing.h"
#include "nav/plan/AirwayPlaces.h"

namespace korvel {
namespace {

std::optional<std::size_t> indexOf(const std::vector<std::string>& segment, std::string_view fix) {
    const auto found = std::ranges::find(segment, fix);
    return found != segment.end() ? std::optional(static_cast<std::size_t>(found - segment.begin()))
                                  : std::nullopt;
}

std::string missingFix(std::string_view fix, std::string_view airway) {
    return formatText(kFlightTexts.airwayFixNotFound, {fix, airway});
}

/// The places of the segment that also stand on the other airway, nearest to the entry first. The
/// entry itself comes last: who names an airway wants to fly along it.
std::vector<std::size_t> commonFixes(const std::vector<std::string>& segment, std::size_t entry,
                                     const std::vector<std::vector<std::string>>& other) {
    std::vector<std::size_t> common;
    for (std::size_t i = 0; i < segment.size(); ++i)
        if (std::ranges::any_of(other, [&](const auto& piece) {
                return std::ranges::find(piece, segment[i]) != piece.end();
            }))
            common.push_back(i);
    std::ranges::stable_sort(common, {}, [entry, &segment](std::size_t i) {
        return i == entry ? segment.size() : std::max(i, entry) - std::min(i, entry);
    });
    return common;
}

std::vector<GeoPoint> positions(std::span<const std::shared_ptr<const DatabaseRecord>> places) {
    std::vector<GeoPoint> found;
    for (const auto& place : places)
        found.push_back(place ? place->position : GeoPoint{});
    return found;
}

/// Whoever typed a key with its kind means no other kind.
void takeKind(std::string& ident, std::string_view key) {
    if (hasKindPrefix(key) && identOfKey(key) == ident)
        ident = key;
}

}  // namespace

RouteResult RouteExpansion::run() {
    for (current_ = 0; current_ < words_.size(); ++current_) {
        switch (takeWord()) {
            case Step::Done:
                return std::move(result_);
            case Step::Failed:
            case Step::NotHere:
                return std::move(failure_);
            case Step::Next:
                failure_ = {};
                break;
        }
    }
    return std::move(result_);
}

void RouteExpansion::keep(std::string message, std::string_view word, std::size_t number) {
    if (failure_.error.empty()) {
        failure_.error = std::move(message);
        failure_.errorWord = number;
        failure_.entries.assign(1, {});
        failure_.entries.front().text = word;
    }
}

RouteExpansion::Step RouteExpansion::fail(std::string message) {
    failure_ = {};
    keep(std::move(message), words_[current_], current_);
    return Step::Failed;
}

RouteExpansion::Step RouteExpansion::takeWord() {
    const RouteWord word = RouteWord::parse(words_[current_]);
    auto record = std::exchange(onAirway_, nullptr);
    if (word.isAirway)
        return takeAirway(word.ident);
    if (word.unreadable)
        return fail(std::string(text(kFlightTexts.invalidAltitude)));
    PlanWaypoint entry{.text = words_[current_],
                       .key = std::string(word.ident),
                       .altitudeFt = word.altitudeFt,
                       .record = {}};
    entryIsCertain_ = record != nullptr;
    if (!record)
        record = lookup_.peek(word.ident);
    if (!record && !airways_.contains(word.ident)) {
        record = lookup_.peekPrefixed(word.ident);
        if (record) {
            entry.key = record->key;
            entry.text = record->key + altitudeSuffix(word.altitudeFt);
        }
    }
    if (!record)
        return takeAirway(word.ident);
    lookup_.moveTo(record->position);
    entry.record = std::move(record);
    result_.entries.push_back(std::move(entry));
    return Step::Next;
}

RouteExpansion::Step RouteExpansion::takeAirway(std::string_view name) {
    const auto found = airways_.find(name);
    if (found == airways_.end())
        return fail(formatText(kFlightTexts.navaidOrAirwayNotFound, {name}));
    if (current_ == 0)
        return fail(formatText(kFlightTexts.noLeadingFix, {name}));
    if (current_ + 1 == words_.size())
        return fail(formatText(kFlightTexts.noTrailingFix, {name}));
    Airway airway{.name = name};
    if (!lookAround(airway))
        return fail(std::string(text(kFlightTexts.invalidAltitude)));
    if (beginsThrough())
        return takeSegment(airway, *start_.through);
    for (const Segment& segment : found->second) {
        const Step step = takeSegment(airway, segment);
        if (step != Step::NotHere)
            return step;
    }
    return Step::NotHere;
}

bool RouteExpansion::lookAround(Airway& airway) {
    // The word before an airway has always become the last entry.
    airway.entryKey = RouteWord::parse(words_[current_ - 1]).ident;
    airway.entry =
        beginsThrough() ? start_.place->key : result_.entries.back().record->ident.view();
    const RouteWord next = RouteWord::parse(words_[current_ + 1]);
    airway.exitKey = next.ident;
    airway.exit = next.ident;
    if (const auto found = airways_.find(next.ident); found != airways_.end())
        airway.nextAirway = &*found;
    if (const auto place = next.isAirway ? nullptr : lookup_.peek(next.ident))
        airway.exit = place->ident.view();
    return !next.unreadable;
}

RouteExpansion::Step RouteExpansion::takeSegment(const Airway& airway, const Segment& segment) {
    const auto entry = indexOf(segment, airway.entry);
    if (!entry) {
        keep(missingFix(airway.entry, airway.name), words_[current_], current_);
        return Step::NotHere;
    }
    const auto exit = indexOf(segment, airway.exit);
    if (!exit && airway.nextAirway == nullptr) {
        keep(missingFix(airway.exit, airway.name), words_[current_], current_);
        return Step::NotHere;
    }
    const Records places = placesOf(airway, segment, *entry, exit);
    if (!exit) {
        if (join(airway, segment, places, *entry))
            return Step::Done;
        keep(missingFix(airway.exit, airway.name), words_[current_], current_);
        return Step::NotHere;
    }
    const Stretch stretch{.segment = segment, .places = places, .from = *entry, .to = *exit};
    if (const auto missing = fly(stretch, result_.entries))
        return fail(missingFix(*missing, airway.name));
    lookup_.moveTo(result_.entries.back().record->position);
    onAirway_ = places[*exit];
    return Step::Next;
}

RouteExpansion::Records RouteExpansion::placesOf(const Airway& airway, Segment segment,
                                                 std::size_t entry,
                                                 std::optional<std::size_t> exit) const {
    Records known(segment.size());
    if (entryIsCertain_)
        known[entry] = result_.entries.back().record;
    takeKind(segment[entry], airway.entryKey);
    if (exit)
        takeKind(segment[*exit], airway.exitKey);
    const PieceRange wanted =
        exit ? PieceRange{.first = std::min(entry, *exit), .last = std::max(entry, *exit)}
             : PieceRange{.first = 0, .last = segment.size() - 1};
    return placesAlong(segment, known, wanted, lookup_.database(), fixes_);
}

std::optional<std::string> RouteExpansion::fly(const Stretch& stretch,
                                               std::vector<PlanWaypoint>& list) const {
    const auto& [segment, places, from, to] = stretch;
    if (places[from])
        list.back().record = places[from];
    const bool backwards = to < from;
    const std::size_t count = (backwards ? from - to : to - from);
    for (std::size_t step = 1; step < count; ++step) {
        const std::size_t i = backwards ? from - step : from + step;
        if (!places[i])
            return segment[i];
        list.push_back({.text = segment[i], .key = segment[i], .record = places[i]});
    }
    return std::nullopt;
}

bool RouteExpansion::join(const Airway& airway, const Segment& segment, const Records& places,
                          std::size_t entry) {
    const auto common = commonFixes(segment, entry, airway.nextAirway->second);
    if (common.empty())
        return joinAtCrossing(airway, segment, places, entry);
    return std::ranges::any_of(common, [&](std::size_t i) {
        return continueAt(airway, {.segment = segment, .places = places, .from = entry, .to = i},
                          segment[i], {.place = places[i]});
    });
}

bool RouteExpansion::joinAtCrossing(const Airway& airway, const Segment& segment,
                                    const Records& places, std::size_t entry) {
    const std::vector<GeoPoint> own = positions(places);
    for (const Segment& other : airway.nextAirway->second) {
        if (other.empty())
            continue;
        const Records otherPlaces =
            placesAlong(other, Records(other.size()), {.first = 0, .last = other.size() - 1},
                        lookup_.database(), fixes_);
        const AirwayCrossing crossing = FindAirwayCrossing(own, positions(otherPlaces));
        if (!IsValid(crossing.position))
            continue;
        const auto fix = fixes_.FindOrCreateFix(crossing.position);
        Segment through = other;
        through.insert(through.begin() + static_cast<std::ptrdiff_t>(crossing.startB) + 1,
                       fix->key);
        const bool ahead = entry <= crossing.startA;
        const std::size_t behind = ahead ? crossing.startA + 1 : crossing.startA;
        if (continueAt(airway, {.segment = segment, .places = places, .from = entry, .to = behind},
                       fix->key, {.place = fix, .through = &through}))
            return true;
    }
    return false;
}

bool RouteExpansion::continueAt(const Airway& airway, const Stretch& stretch,
                                const std::string& name, const Junction& junction) {
    if (triesLeft_-- <= 0)
        return false;
    std::vector<PlanWaypoint> entries = result_.entries;
    if (const auto missing = fly(stretch, entries)) {
        keep(missingFix(*missing, airway.name), words_[current_], current_);
        return false;
    }
    PlaceLookup lookup = lookup_;
    lookup.moveTo(entries.back().record->position);
    std::vector<std::string> words{name};
    words.insert(words.end(), words_.begin() + static_cast<std::ptrdiff_t>(current_) + 1,
                 words_.end());
    RouteResult rest = RouteExpansion(lookup, fixes_, words, airways_, triesLeft_, junction).run();
    if (!rest.error.empty()) {
        // Of the rest's words the first one is the junction, which stands in no line.
        keep(std::move(rest.error), rest.entries.front().text, current_ + rest.errorWord);
        return false;
    }
    entries.insert(entries.end(), std::make_move_iterator(rest.entries.begin()),
                   std::make_move_iterator(rest.entries.end()));
    result_.entries = std::move(entries);
    return true;
}

}  // namespace korvel
