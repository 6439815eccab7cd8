#include "nav/plan/RouteExpansion.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "config/Text.h"
#include "config/texts/FlightTexts.h"
#include "nav/plan/AirwayCrossing.h"

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
    for (std::size_t i = 0; i < segment.size(); ++i) {
        if (std::ranges::any_of(other, [&](const auto& piece) {
                return std::ranges::find(piece, segment[i]) != piece.end();
            })) {
            common.push_back(i);
        }
    }
    std::ranges::stable_sort(common, {}, [entry, &segment](std::size_t i) {
        return i == entry ? segment.size() : std::max(i, entry) - std::min(i, entry);
    });
    return common;
}

}  // namespace

RouteResult RouteExpansion::run() {
    for (current_ = 0; current_ < words_.size(); ++current_) {
        switch (takeWord()) {
            case Step::done:
                return std::move(result_);
            case Step::failed:
            case Step::notHere:
                return std::move(failure_);
            case Step::next:
                failure_ = {};
                break;
        }
    }
    return std::move(result_);
}

void RouteExpansion::keep(std::string message, std::string_view word) {
    if (failure_.error.empty()) {
        failure_.error = std::move(message);
        failure_.entries.assign(1, {});
        failure_.entries.front().text = word;
    }
}

RouteExpansion::Step RouteExpansion::fail(std::string message) {
    failure_ = {};
    keep(std::move(message), words_[current_]);
    return Step::failed;
}

RouteExpansion::Step RouteExpansion::takeWord() {
    const RouteWord word = RouteWord::parse(words_[current_]);
    if (word.isAirway) {
        return takeAirway(word.ident);
    }
    if (word.unreadable) {
        return fail(std::string(text(kFlightTexts.invalidAltitude)));
    }
    if (auto record = lookup_.next(word.ident)) {
        result_.entries.push_back({.text = words_[current_],
                                   .key = std::string(word.ident),
                                   .altitudeFt = word.altitudeFt,
                                   .record = std::move(record)});
        return Step::next;
    }
    return takeAirway(word.ident);
}

RouteExpansion::Step RouteExpansion::takeAirway(std::string_view name) {
    const auto found = airways_.find(name);
    if (found == airways_.end()) {
        return fail(formatText(kFlightTexts.navaidOrAirwayNotFound, {name}));
    }
    if (current_ == 0) {
        return fail(formatText(kFlightTexts.noLeadingFix, {name}));
    }
    if (current_ + 1 == words_.size()) {
        return fail(formatText(kFlightTexts.noTrailingFix, {name}));
    }
    Airway airway{.name = name};
    if (!lookAround(airway)) {
        return fail(std::string(text(kFlightTexts.invalidAltitude)));
    }
    for (const Segment& segment : found->second) {
        const Step step = takeSegment(airway, segment);
        if (step != Step::notHere) {
            return step;
        }
    }
    return Step::notHere;
}

bool RouteExpansion::lookAround(Airway& airway) {
    // The word before an airway has always become the last entry.
    airway.entry = result_.entries.back().record->ident.view();
    const RouteWord next = RouteWord::parse(words_[current_ + 1]);
    airway.exit = next.ident;
    if (const auto found = airways_.find(next.ident); found != airways_.end()) {
        airway.nextAirway = &*found;
    }
    if (const auto place = next.isAirway ? nullptr : lookup_.peek(next.ident)) {
        airway.exit = place->ident.view();
    }
    return !next.unreadable;
}

RouteExpansion::Step RouteExpansion::takeSegment(const Airway& airway, const Segment& segment) {
    const auto entry = indexOf(segment, airway.entry);
    const auto exit = indexOf(segment, airway.exit);
    if (!entry) {
        keep(missingFix(airway.entry, airway.name), words_[current_]);
        return Step::notHere;
    }
    if (exit) {
        const auto missing = listBetween(segment, *entry, *exit, lookup_, result_.entries);
        return missing ? fail(missingFix(*missing, airway.name)) : Step::next;
    }
    if (airway.nextAirway != nullptr && join(airway, segment, *entry)) {
        return Step::done;
    }
    keep(missingFix(airway.exit, airway.name), words_[current_]);
    return Step::notHere;
}

std::optional<std::string> RouteExpansion::listBetween(const Segment& segment, std::size_t from,
                                                       std::size_t to, PlaceLookup& lookup,
                                                       std::vector<PlanWaypoint>& list) const {
    const bool backwards = to < from;
    const std::size_t count = (backwards ? from - to : to - from);
    for (std::size_t step = 1; step < count; ++step) {
        const std::string& fix = segment[backwards ? from - step : from + step];
        auto record = lookup.next(fix);
        if (!record) {
            return fix;
        }
        list.push_back({.text = fix, .key = fix, .record = std::move(record)});
    }
    return std::nullopt;
}

bool RouteExpansion::join(const Airway& airway, const Segment& segment, std::size_t entry) {
    const auto common = commonFixes(segment, entry, airway.nextAirway->second);
    if (common.empty()) {
        return joinAtCrossing(airway, segment, entry);
    }
    return std::ranges::any_of(common, [&](std::size_t i) {
        return continueAt(airway, {.segment = segment, .from = entry, .to = i}, segment[i],
                          airways_);
    });
}

bool RouteExpansion::joinAtCrossing(const Airway& airway, const Segment& segment,
                                    std::size_t entry) {
    const auto& [nextName, nextSegments] = *airway.nextAirway;
    const std::vector<GeoPoint> own = positions(segment, entry);
    for (const Segment& other : nextSegments) {
        const AirwayCrossing crossing = FindAirwayCrossing(own, positions(other, 0));
        if (!IsValid(crossing.position)) {
            continue;
        }
        // From here on the second airway is this piece of it, which now passes the crossing.
        const auto fix = fixes_.FindOrCreateFix(crossing.position);
        Segment through = other;
        through.insert(through.begin() + static_cast<std::ptrdiff_t>(crossing.startB) + 1,
                       std::string(fix->ident.view()));
        AirwayTable airways = airways_;
        airways[nextName] = {std::move(through)};
        const bool ahead = entry <= crossing.startA;
        const std::size_t behind = ahead ? crossing.startA + 1 : crossing.startA;
        if (continueAt(airway, {.segment = segment, .from = entry, .to = behind}, fix->key,
                       airways)) {
            return true;
        }
    }
    return false;
}

bool RouteExpansion::continueAt(const Airway& airway, const Stretch& stretch,
                                const std::string& first, const AirwayTable& airways) {
    if (triesLeft_-- <= 0) {
        return false;
    }
    PlaceLookup lookup = lookup_;
    std::vector<PlanWaypoint> entries = result_.entries;
    if (const auto missing =
            listBetween(stretch.segment, stretch.from, stretch.to, lookup, entries)) {
        keep(missingFix(*missing, airway.name), words_[current_]);
        return false;
    }
    std::vector<std::string> words{first};
    words.insert(words.end(), words_.begin() + static_cast<std::ptrdiff_t>(current_) + 1,
                 words_.end());
    RouteResult rest = RouteExpansion(lookup, fixes_, words, airways, triesLeft_).run();
    if (!rest.error.empty()) {
        keep(std::move(rest.error), rest.entries.front().text);
        return false;
    }
    entries.insert(entries.end(), std::make_move_iterator(rest.entries.begin()),
                   std::make_move_iterator(rest.entries.end()));
    result_.entries = std::move(entries);
    return true;
}

std::vector<GeoPoint> RouteExpansion::positions(const Segment& segment, std::size_t start) const {
    std::vector<GeoPoint> found(segment.size());
    PlaceLookup onwards = lookup_;
    PlaceLookup backwards = lookup_;
    const auto resolve = [&](PlaceLookup& lookup, std::size_t i) {
        if (const auto record = lookup.next(segment[i])) {
            found[i] = record->position;
        }
    };
    for (std::size_t i = start; i < segment.size(); ++i) {
        resolve(onwards, i);
    }
    for (std::size_t i = start; i-- > 0;) {
        resolve(backwards, i);
    }
    return found;
}

}  // namespace korvel
