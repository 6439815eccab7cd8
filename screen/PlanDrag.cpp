#include "screen/PlanDrag.h"

#include <utility>

#include "cockpit/CKorvelDoc.h"
#include "config/texts/TouchTexts.h"
#include "geo/Geodesy.h"
#include "map/PlaceHit.h"
#include "map/feeds/MapFeeds.h"
#include "nav/plan/PlanEdit.h"
#include "navdb/NavDatabase.h"
#include "screen/TapActions.h"
#include "screen/TapThing.h"

namespace korvel {
namespace {

/// On the place before it or behind it a waypoint becomes one with that, and a leg stays as it is:
/// nothing.
std::optional<PlanEntries> withDropped(PlanEntries entries, const PlanBand& band,
                                       const std::shared_ptr<const DatabaseRecord>& record) {
    const std::size_t row = band.row;
    const bool isNeighbour = isPlace(entries, band.former ? row + 1 : row, *record) ||
                             (row > 0 && isPlace(entries, row - 1, *record));
    if (!band.former)
        return isNeighbour ? std::nullopt
                           : std::optional(withRecord(std::move(entries), row, record));
    return isNeighbour ? withoutRow(std::move(entries), row)
                       : withPlace(std::move(entries), row, record);
}

}  // namespace

bool PlanDrag::take(Point finger, const MapView& view, const CockpitData& data) {
    band_ = takePlan(finger, data, view, kFingerPixels);
    place_.reset();
    return band_.has_value();
}

void PlanDrag::pull(Point finger, const MapView& view, const MapFeeds& feeds,
                    const CKorvelDoc& document) {
    if (!band_)
        return;
    const auto found =
        placesAt(feeds.places(), view.projection, view.rangeNm, finger, kFingerPixels);
    place_ = found.empty() ? nullptr : document.charts().database().recordOf(found.front()->place);
    band_->at = place_ ? place_->position : view.projection.unproject(finger);
    band_->name = place_ ? place_->ident.view() : "";
}

std::string PlanDrag::drop(CKorvelDoc& document) {
    const auto band = std::exchange(band_, std::nullopt);
    ActivePlan& plan = document.flight().plan();
    PlanEntries entries = plan.entries();
    // Another plan may have come into force meanwhile.
    if (!band || band->row >= entries.size() || entries[band->row].record->key != band->key ||
        (band->former && SamePoint(*band->former, band->at)))
        return {};
    const auto record = place_ ? place_ : namedPoint(band->at, document);
    const std::string name(record->ident.view());
    const std::string other(entries[band->row].record->ident.view());
    auto edited = withDropped(std::move(entries), *band, record);
    if (!edited)
        return {};
    plan.replace(std::move(*edited));
    return formatText(band->former ? kTouchTexts.insteadOf : kTouchTexts.insertedBefore,
                      {name, other});
}

}  // namespace korvel
