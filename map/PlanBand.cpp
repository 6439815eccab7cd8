#include "map/PlanBand.h"

#include "cockpit/CockpitData.h"
#include "geo/Geodesy.h"
#include "map/PlanHit.h"

namespace korvel {
namespace {

/// 0 where one of them is missing.
double wayNm(const std::optional<GeoPoint>& from, const std::optional<GeoPoint>& to) {
    return from && to ? DistanceNm(*from, *to) : 0;
}

PlanBand bandOf(std::size_t row, bool leg, const CockpitData& data, GeoPoint at) {
    const std::vector<PlanRow>& rows = data.plan->rows;
    PlanBand band{.row = row, .key = rows[row].key, .totalNm = data.plan->totalNm, .at = at};
    if (row > 0)
        band.before = rows[row - 1].position;
    if (row == flownRow(data) && data.position)
        band.before = data.position;
    if (leg) {
        band.behind = rows[row].position;
        return band;
    }
    band.former = rows[row].position;
    if (row + 1 < rows.size())
        band.behind = rows[row + 1].position;
    return band;
}

}  // namespace

BandFigures figuresOf(const PlanBand& band) {
    BandFigures figures;
    if (band.before)
        figures.toNm = DistanceNm(*band.before, band.at);
    if (band.behind)
        figures.fromNm = DistanceNm(band.at, *band.behind);
    const double old = band.former
                           ? wayNm(band.before, band.former) + wayNm(band.former, band.behind)
                           : wayNm(band.before, band.behind);
    figures.extraNm = figures.toNm.value_or(0) + figures.fromNm.value_or(0) - old;
    figures.totalNm = band.totalNm + figures.extraNm;
    return figures;
}

std::optional<PlanBand> takePlan(Point finger, const CockpitData& data, const MapView& view,
                                 double radiusPx) {
    const auto place = planPlaceAt(data, view, finger, radiusPx);
    if (place && !isBehind(planPart(*data.plan, *place)))
        return bandOf(*place, false, data, data.plan->rows[*place].position);
    if (const auto leg = planLegAt(data, view, finger, radiusPx / 2))
        return bandOf(*leg, true, data, view.projection.unproject(finger));
    return std::nullopt;
}

}  // namespace korvel
