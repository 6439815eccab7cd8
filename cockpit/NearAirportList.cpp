#include "cockpit/NearAirportList.h"

#include <utility>

#include "cockpit/NearAirports.h"
#include "config/Settings.h"
#include "geo/Geodesy.h"

namespace korvel {
namespace {

/// Nobody sees a distance change by less.
constexpr double kStepNm = 0.1;

}  // namespace

void NearAirportList::update(const NavDatabase& database, std::optional<GeoPoint> here,
                             const Settings& settings, const Variation& variation) {
    if (!std::exchange(wanted_, false) || !here || !IsValid(*here)) {
        shown_.reset();
        return;
    }
    if (shown_ && DistanceNm(*here, lookedUpAt_) < kStepNm)
        return;
    lookedUpAt_ = *here;
    auto airports = std::make_shared<std::vector<NearAirport>>();
    findNearAirports(database, *here, variation,
                     {.privateAirports = settings.displayPrivateAirports != 0, .filter = filter_},
                     *airports);
    shown_ = std::move(airports);
}

}  // namespace korvel
