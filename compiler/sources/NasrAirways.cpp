#include <algorithm>
#include <array>
#include <limits>
#include <optional>
#include <utility>
#include <vector>

#include "base/AsciiText.h"
#include "compiler/sources/CsvValues.h"
#include "compiler/sources/Fields.h"
#include "compiler/sources/NasrImport.h"
#include "geo/Geodesy.h"

namespace korvel {

namespace {

/// More places of one name than any has: what a damaged file lists does not take for ever.
constexpr std::size_t kMostNamesakes = 32;

std::string joined(std::initializer_list<std::string_view> parts) {
    std::string text;
    for (const std::string_view part : parts)
        text.append(part).append("|");
    return text;
}

/// Of the places of each name the ones that make the shortest line; the names alone do not say
/// which of several places is meant. Each name has at least one.
std::vector<GeoDegrees> shortestLine(const std::vector<std::vector<GeoDegrees>>& candidates) {
    struct Step {
        double miles = 0.0;
        std::size_t from = 0;
    };
    std::vector<std::vector<Step>> steps{std::vector<Step>(candidates.front().size())};
    for (std::size_t i = 1; i < candidates.size(); ++i) {
        std::vector<Step> row;
        for (const GeoDegrees& here : candidates[i]) {
            Step best{std::numeric_limits<double>::max(), 0};
            for (std::size_t from = 0; from < candidates[i - 1].size(); ++from) {
                const double miles =
                    steps.back()[from].miles +
                    DistanceNm(toGeoPoint(candidates[i - 1][from]), toGeoPoint(here));
                if (miles < best.miles)
                    best = {miles, from};
            }
            row.push_back(best);
        }
        steps.push_back(std::move(row));
    }
    const auto nearest =
        std::min_element(steps.back().begin(), steps.back().end(),
                         [](const Step& a, const Step& b) { return a.miles < b.miles; });
    auto at = static_cast<std::size_t>(nearest - steps.back().begin());
    std::vector<GeoDegrees> line(candidates.size());
    for (std::size_t i = candidates.size(); i-- > 0;) {
        line[i] = candidates[i][at];
        at = steps[i][at].from;
    }
    return line;
}

}  // namespace

std::string NasrImport::importGaps(CsvTable table) {
    constexpr std::array<std::string_view, 5> kColumns{"EFF_DATE", "AWY_ID", "FROM_POINT",
                                                       "TO_POINT", "AWY_SEG_GAP_FLAG"};
    return eachRow(table, kColumns, [&] {
        noteCycle(table);
        if (table["AWY_SEG_GAP_FLAG"] == "Y")
            gaps_.insert(joined(
                {table["AWY_ID"], table["AWY_LOCATION"], table["FROM_POINT"], table["TO_POINT"]}));
    });
}

NasrImport::Places NasrImport::allPlaces() const {
    Places places;
    for (const SourceNavaid& navaid : data_.navaids)
        places.emplace(navaid.ident, navaid.position);
    for (const SourceFix& fix : data_.fixes)
        places.emplace(fix.ident, fix.position);
    return places;
}

std::string NasrImport::importAirways(CsvTable table) {
    constexpr std::array<std::string_view, 3> kColumns{"EFF_DATE", "AWY_ID", "AIRWAY_STRING"};
    const Places places = allPlaces();
    auto refused = eachRow(table, kColumns, [&] { takeAirway(table, places); });
    // Off the airways, a fix serves an airport's procedures; those on them are told apart later.
    if (refused.empty() && !data_.airways.airways().empty())
        for (SourceFix& fix : data_.fixes)
            if (!fix.usage)
                fix.usage = kUsageTerminal;
    return refused;
}

void NasrImport::takeAirway(CsvTable& row, const Places& places) {
    noteCycle(row);
    const std::string airway(row["AWY_ID"]);
    Fields words;
    words.split(row["AIRWAY_STRING"]);
    if (!isIdentifier(airway) || words.size() < 2) {
        row.malformed("airway without name or points");
        return;
    }
    const bool high = airway.starts_with('J') || airway.starts_with('Q');
    std::vector<std::string> chain;
    const auto finish = [&] { takeChain(airway, high, std::exchange(chain, {}), places); };
    for (std::size_t i = 0; i < words.size(); ++i) {
        const std::string_view ident = words[i];
        if (!chain.empty() &&
            gaps_.count(joined({airway, row["AWY_LOCATION"], chain.back(), ident})) != 0) {
            log_.leftOut("gaps in airways");
            finish();
        }
        if (places.find(ident) != places.end()) {
            chain.emplace_back(ident);
            continue;
        }
        log_.leftOut("airway points that no table has");
        finish();
    }
    finish();
}

void NasrImport::takeChain(std::string_view airway, bool high,
                           const std::vector<std::string>& idents, const Places& places) {
    if (idents.size() < 2)
        return;
    std::vector<std::vector<GeoDegrees>> candidates;
    for (const std::string& ident : idents) {
        auto& row = candidates.emplace_back();
        const auto [first, last] = places.equal_range(ident);
        for (auto each = first; each != last && row.size() < kMostNamesakes; ++each)
            row.push_back(each->second);
    }
    const std::vector<GeoDegrees> line = shortestLine(candidates);
    std::optional<AirwayNetwork::PointIndex> before;
    for (std::size_t i = 0; i < line.size(); ++i) {
        const auto point = data_.airways.pointAt(idents[i], line[i]);
        data_.airways.markUse(point, high);
        if (before) {
            data_.airways.addSegment(airway, *before, point);
            log_.took("airway segments");
        }
        before = point;
    }
}

}  // namespace korvel
