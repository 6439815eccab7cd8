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
namespace {

/// Of a bare point one that is called by where it lies.
std::shared_ptr<const DatabaseRecord> recordAt(GeoPoint point, CKorvelDoc& document) {
    constexpr int kDecimals = 1;
    const std::string where = latitudeText(point.lat * kRadToDeg, kDecimals) + ' ' +
                              longitudeText(point.lon * kRadToDeg, kDecimals);
    return document.flight().plan().fixes().FindOrCreateFix(point, std::nullopt, where);
}

/// Whether the entry before the row or the one in it is that place.
bool isBeside(std::size_t row, const PlanEntries& entries, const DatabaseRecord& record) {
    const auto isThat = [&](std::size_t index) {
        return index < entries.size() && entries[index].record->key == record.key &&
               SamePoint(entries[index].position(), record.position);
    };
    return isThat(row) || (row > 0 && isThat(row - 1));
}

}  // namespace

std::string flyDirectTo(const TapThing& thing, CKorvelDoc& document) {
    const auto record = thing.record ? thing.record : recordAt(thing.position, document);
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
                            : recordAt(intoLeg ? thing.ground : thing.position, document);
    const CockpitData& data = document.cockpitData();
    const std::size_t first = data.plan ? data.plan->active.value_or(0) : 0;
    const std::size_t row =
        intoLeg ? thing.row : roomFor(record->position, entries, first, data.position).row;
    const std::string_view name = record->ident.view();
    if (isBeside(row, entries, *record))
        return formatText(kTouchTexts.inPlanAlready, {name});
    const std::string next =
        row < entries.size() ? std::string(entries[row].record->ident.view()) : std::string();
    plan.replace(withRecord(std::move(entries), row, record));
    return next.empty() ? formatText(kMessageTexts.addedToPlan, {name})
                        : formatText(kTouchTexts.insertedBefore, {name, std::string_view(next)});
}

}  // namespace korvel
