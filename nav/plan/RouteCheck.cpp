#include "nav/plan/RouteCheck.h"

#include <algorithm>

#include "config/Text.h"
#include "config/texts/FlightTexts.h"
#include "nav/plan/FlightPlan.h"
#include "nav/plan/GeneratedFixes.h"
#include "nav/plan/PlaceLookup.h"
#include "nav/plan/PlanHints.h"
#include "nav/plan/RouteEntry.h"
#include "navdb/NavDatabase.h"

namespace korvel {
namespace {

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
    if (!isFirst && !routes.empty())
        checked.kind = CheckedWord::Kind::Airway;
    else
        checked.message = formatText(kFlightTexts.navaidOrAirwayNotFound, {word.ident});
    return checked;
}

}  // namespace

RouteCheck checkRoute(std::string_view line, NavDatabase& database, const GeneratedFixes& fixes,
                      std::optional<GeoPoint> present, DistanceUnit unit) {
    RouteCheck check;
    PlaceLookup lookup(database, fixes, present);
    for (const std::string& word : SplitWords(line))
        check.words.push_back(checkWord(word, check.words.empty(), database, lookup));
    GeneratedFixes scratch = fixes;
    RouteResult result = RouteEntry(database, scratch, present).EnterRoute(line, true);
    check.error = std::move(result.error);
    if (check.error.empty()) {
        check.count = result.entries.size();
        check.hints = planHints(result.entries, unit);
        check.totalNm = FlightPlan(std::move(result.entries)).totalNm();
        return check;
    }
    // A word may be known and yet not lead on: say so at the word.
    const auto offending =
        std::ranges::find(check.words, result.entries.front().text, &CheckedWord::word);
    if (offending != check.words.end())
        offending->message = check.error;
    return check;
}

}  // namespace korvel
