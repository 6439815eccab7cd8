#include "screen/TapActions.h"

#include <memory>
#include <utility>

#include "cockpit/CKorvelDoc.h"
#include "config/texts/MessageTexts.h"
#include "config/texts/TouchTexts.h"
#include "geo/GeoText.h"
#include "geo/Geodesy.h"
#include "nav/plan/PlanEdit.h"
#include "screen/TapThing.h"

namespace korvel {

std::shared_ptr<const DatabaseRecord> namedPoint(GeoPoint point, CKorvelDoc& document) {
    constexpr int kDecimals = 1;
    const std::string where = latitudeText(point.lat * kRadToDeg, kDecimals) + ' ' +
                              longitudeText(point.lon * kRadToDeg, kDecimals);
    return document.flight().plan().fixes().FindOrCreateFix(point, std::nullopt, where);
}

std::string flyDirectTo(const TapThing& thing, CKorvelDoc& document) {
    const auto record = thing.record ? thing.record : namedPoint(thing.position, document);
    ActiveNavigation& navigation = document.flight().navigation();
    const std::uint64_t before = navigation.announcement().number;
    std::string said = navigation.DirectTo(record->key, "", kNoAltitudeFt, record->position);
    if (thing.record && navigation.announcement().number != before)
        document.knownPlaces().note(*record);
    return said;
}

std::string insertIntoPlan(const TapThing& thing, CKorvelDoc& document) {
    ActivePlan& plan = document.flight().plan();
    PlanEntries entries = plan.entries();
    const bool intoLeg = thing.kind == TapKind::Leg;
    const auto record = thing.record && !intoLeg
                            ? thing.record
                            : namedPoint(intoLeg ? thing.ground : thing.position, document);
    const CockpitData& data = document.cockpitData();
    const std::size_t first = data.plan ? data.plan->active.value_or(0) : 0;
    const std::size_t row =
        intoLeg ? thing.row : roomFor(record->position, entries, first, data.position).row;
    const std::string_view name = record->ident.view();
    if (isPlace(entries, row, *record) || (row > 0 && isPlace(entries, row - 1, *record)))
        return formatText(kTouchTexts.inPlanAlready, {name});
    const std::string next =
        row < entries.size() ? std::string(entries[row].record->ident.view()) : std::string();
    plan.replace(withRecord(std::move(entries), row, record));
    return next.empty() ? formatText(kMessageTexts.addedToPlan, {name})
                        : formatText(kTouchTexts.insertedBefore, {name, std::string_view(next)});
}

}  // namespace korvel
