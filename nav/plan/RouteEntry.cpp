#include "nav/plan/RouteEntry.h"

#include <algorithm>

#include "nav/plan/RouteExpansion.h"
#include "navdb/NavDatabase.h"

namespace korvel {

void RouteEntry::addAirway(std::string_view name, AirwayTable& airways) const {
    if (airways.contains(name))
        return;
    std::vector<std::string> routes;
    database_.GetAirwayRoutes(name, routes);
    if (!routes.empty()) {
        auto& segments = airways[std::string(name)];
        for (const std::string& route : routes)
            segments.push_back(SplitWords(route));
    }
}

RouteResult RouteEntry::EnterRoute(std::string_view text, bool withAirways) {
    std::vector<std::string> words = SplitWords(text);
    words.erase(std::unique(words.begin(), words.end()), words.end());
    AirwayTable airways;
    for (std::size_t i = 1; withAirways && i < words.size(); ++i) {
        const std::string_view word = words[i];
        addAirway(word.substr(word.starts_with('@') ? 1 : 0), airways);
    }
    RouteResult result = ExpandRoute(words, airways);
    const auto sameText = [](const PlanWaypoint& a, const PlanWaypoint& b) {
        return a.text == b.text;
    };
    auto& entries = result.entries;
    entries.erase(std::unique(entries.begin(), entries.end(), sameText), entries.end());
    return result;
}

RouteResult RouteEntry::ExpandRoute(const std::vector<std::string>& words,
                                    const AirwayTable& airways) {
    int triesLeft = RouteExpansion::kMaxTries;
    RouteExpansion expansion(PlaceLookup(database_, fixes_, present_), fixes_, words, airways,
                             triesLeft, {});
    return expansion.run();
}

}  // namespace korvel
