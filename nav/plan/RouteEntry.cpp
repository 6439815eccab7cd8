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
    std::vector<std::string> words;
    std::vector<std::size_t> numbers;  // of the words in the line
    for (std::size_t number = 0; std::string & word : SplitWords(text)) {
        if (words.empty() || word != words.back()) {
            words.push_back(std::move(word));
            numbers.push_back(number);
        }
        ++number;
    }
    AirwayTable airways;
    for (std::size_t i = 1; withAirways && i < words.size(); ++i) {
        const std::string_view word = words[i];
        addAirway(word.substr(word.starts_with('@') ? 1 : 0), airways);
    }
    RouteResult result = ExpandRoute(words, airways);
    if (!result.error.empty())
        result.errorWord = numbers.at(result.errorWord);
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
    PlaceLookup lookup(database_, fixes_, present_);
    lookup.setIcaoPrefix(icaoPrefix_);
    RouteExpansion expansion(lookup, fixes_, words, airways, triesLeft, {});
    return expansion.run();
}

}  // namespace korvel
