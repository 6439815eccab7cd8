#include "exchange/ExportPoint.h"

#include <map>
#include <string_view>

#include "base/TextNumbers.h"
#include "geo/Geodesy.h"

namespace korvel {
namespace {

constexpr std::string_view kOwnMark = "F-";

}  // namespace

std::vector<ExportPoint> exportPoints(const std::vector<PlanWaypoint>& entries) {
    std::map<std::string, std::string, std::less<>> keyOf;  // by the identifier that was given
    std::vector<ExportPoint> points;
    for (const PlanWaypoint& entry : entries) {
        std::string ident(identOfKey(entry.key));
        const bool isOwn = entry.record->GetKind() == kFixKind && ident.starts_with(kOwnMark);
        if (isOwn)
            ident.erase(0, kOwnMark.size());
        // A database's place is told apart by where it lies; a waypoint of one's own has its name.
        const std::string plain = ident;
        const std::string& key = entry.record->key;
        for (int number = 2; isOwn && keyOf.contains(ident) && keyOf[ident] != key; ++number)
            ident = plain + '-' + formatInt(number);
        keyOf.try_emplace(ident, key);
        points.push_back({.ident = std::move(ident),
                          .name = std::string(entry.record->GetName()),
                          .kind = entry.record->GetKind(),
                          .isOwn = isOwn,
                          .position = entry.position(),
                          .altitudeFt = entry.altitudeFt});
    }
    return points;
}

}  // namespace korvel
