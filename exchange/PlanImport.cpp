#include "exchange/PlanImport.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <memory>
#include <utility>

#include "base/TextNumbers.h"
#include "config/Text.h"
#include "config/texts/ExchangeTexts.h"
#include "exchange/Formats.h"
#include "exchange/PlainName.h"
#include "geo/Geodesy.h"
#include "nav/plan/GeneratedFixes.h"
#include "nav/plan/RouteWords.h"
#include "navdb/NavDatabase.h"
#include "navdb/records/FixRecord.h"

namespace korvel {
namespace {

/// A plan of more is a mistake, and flying it would be slow.
constexpr std::size_t kMostPlanPoints = 10000;
constexpr double kSamePlaceNm = 1.0;
constexpr double kSameWaypointNm = 0.1;
constexpr std::size_t kLongestName = 15;
constexpr std::string_view kNameMarks = "+-._/";

/// Names that may be an identifier, in files that do not say which are.
bool mayBeIdent(std::string_view text) {
    return text.size() >= 2 && text.size() <= 7 &&
           std::ranges::all_of(
               text, [](char c) { return (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9'); });
}

class Matching {
 public:
    Matching(NavDatabase& database, GeneratedFixes& fixes, ImportedPlan& plan)
        : database_(database), fixes_(fixes), plan_(plan) {}

    void add(const ForeignPoint& point, std::size_t number) {
        PlanWaypoint entry;
        entry.record = fromDatabase(point);
        if (!entry.record)
            entry.record = ownFix(point, number);
        entry.key = entry.record->key;
        if (point.altitudeFt && entry.record->GetKind() != kAirportKind &&
            *point.altitudeFt >= kLowestPlannedFt && *point.altitudeFt <= kHighestPlannedFt)
            entry.altitudeFt = RoundToInt(*point.altitudeFt / 10.0) * 10;
        entry.text = entry.key + altitudeSuffix(entry.altitudeFt);
        if (plan_.entries.empty() || plan_.entries.back().key != entry.key)
            plan_.entries.push_back(std::move(entry));
    }

 private:
    /// The nearest place of that name, whatever it is of `kinds`; null when there is none.
    std::shared_ptr<const DatabaseRecord> nearest(const ForeignPoint& point, double& distanceNm) {
        std::shared_ptr<const DatabaseRecord> best;
        for (const KindMask kind : {kAirportKind, kVorKind, kNdbKind, kFixKind}) {
            if ((point.kinds & kind) != kind)
                continue;
            const DatabaseRecord* const found =
                database_.Find(makeRecordKey(kind, point.ident), point.position);
            const double distance =
                found != nullptr ? DistanceNm(found->position, point.position) : 0.0;
            if (found != nullptr && (!best || distance < distanceNm)) {
                distanceNm = distance;
                best = found->Clone();
            }
        }
        return best;
    }

    std::shared_ptr<const DatabaseRecord> fromDatabase(const ForeignPoint& point) {
        if (point.kinds == 0 || (!point.isPublished && !mayBeIdent(point.ident)))
            return nullptr;
        double distanceNm = 0.0;
        auto record = nearest(point, distanceNm);
        if (record && distanceNm <= kSamePlaceNm)
            return record;
        note(record ? formatText(kExchangeTexts.liesElsewhere,
                                 {std::string_view(point.ident),
                                  std::string_view(formatFixed(distanceNm, 1))})
                    : formatText(kExchangeTexts.notFoundHere, {std::string_view(point.ident)}));
        return nullptr;
    }

    std::shared_ptr<const DatabaseRecord> ownFix(const ForeignPoint& point, std::size_t number) {
        const std::string& shown = point.name.empty() ? point.ident : point.name;
        // A file's own identifier where there is one: panel units have nothing else.
        std::string plain = plainName(point.isPublished || point.kinds == 0 ? point.ident : shown,
                                      kNameMarks, kLongestName);
        if (plain.empty())
            plain = plainName(shown, kNameMarks, kLongestName);
        if (plain.empty())
            plain = "WPT" + formatInt(static_cast<long long>(number));
        std::string name = plain;
        for (int i = 2; isElsewhere(name, point.position); ++i)
            name = numberedName(plain, i, kLongestName);
        const auto [place, isNew] = places_.try_emplace(name, point.position);
        if (isNew && name != shown && !shown.empty())
            note(formatText(kExchangeTexts.isCalled,
                            {std::string_view(shown), std::string_view(name)}));
        return fixes_.FindOrCreateFix(place->second, "F-" + name, shown.empty() ? name : shown);
    }

    [[nodiscard]] bool isElsewhere(const std::string& name, GeoPoint position) const {
        const auto found = places_.find(name);
        return found != places_.end() && DistanceNm(found->second, position) > kSameWaypointNm;
    }

    void note(std::string words) {
        if (std::ranges::find(plan_.notes, words) == plan_.notes.end())
            plan_.notes.push_back(std::move(words));
    }

    NavDatabase& database_;
    GeneratedFixes& fixes_;
    ImportedPlan& plan_;
    std::map<std::string, GeoPoint> places_;  // of the user's own, by their names here
};

}  // namespace

ImportedPlan importPlan(std::string bytes, int route, NavDatabase& database,
                        GeneratedFixes& fixes) {
    ImportedPlan result;
    const ForeignPlan plan = readForeignPlan(std::move(bytes), result.format);
    for (const ForeignRoute& each : plan.routes)
        result.routes.push_back({each.name, each.points.size()});
    result.error = plan.error;
    if (result.error.empty() && (route < 1 || static_cast<std::size_t>(route) > plan.routes.size()))
        result.error = text(kExchangeTexts.noSuchRoute);
    if (!result.error.empty())
        return result;
    const ForeignRoute& chosen = plan.routes[static_cast<std::size_t>(route) - 1];
    if (chosen.points.size() > kMostPlanPoints) {
        result.error = text(kExchangeTexts.tooManyPoints);
        return result;
    }
    result.name = chosen.name;
    Matching matching(database, fixes, result);
    for (std::size_t i = 0; i < chosen.points.size(); ++i)
        matching.add(chosen.points[i], i + 1);
    return result;
}

}  // namespace korvel
