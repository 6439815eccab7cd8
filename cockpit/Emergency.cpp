#include "cockpit/Emergency.h"

#include <algorithm>
#include <tuple>
#include <utility>

#include "cockpit/CockpitData.h"
#include "cockpit/Flight.h"
#include "cockpit/NearAirports.h"
#include "config/Text.h"
#include "config/texts/AircraftTexts.h"
#include "geo/Geodesy.h"
#include "geo/Variation.h"

namespace korvel {
namespace {

constexpr std::size_t kLookedAt = 60;
constexpr std::size_t kShown = 15;
constexpr int kLongEnoughFt = 4000;
constexpr int kAlikeFt = 500;  // runways whose lengths differ by less are alike

}  // namespace

void EmergencyField::follow(const CockpitData& data) {
    arrivalFt = glideArrivalFt(data, airport);
    const auto& here = data.position ? data.position : data.lastPosition;
    if (!here)
        return;
    const Variation variation{.databaseDeg = data.variationDeg.value_or(kNoAngle)};
    airport.distanceNm = DistanceNm(*here, airport.position);
    airport.bearingMagDeg = variation.TrueToMagnetic(TrueCourseDeg(*here, airport.position));
}

void rankFields(std::vector<EmergencyField>& fields) {
    const auto merit = [](const EmergencyField& field) {
        const int length = std::min(field.airport.longestRunwayFt.value_or(0), kLongEnoughFt);
        const int quality =
            field.isInGlide() ? length / kAlikeFt + (field.airport.hard ? 100 : 0) : 0;
        return std::tuple(!field.isInGlide(), -quality, field.airport.distanceNm);
    };
    std::ranges::stable_sort(fields, {}, merit);
}

std::vector<EmergencyField> Emergency::fields(const CockpitData& data) const {
    const auto& here = data.position ? data.position : data.lastPosition;
    std::vector<EmergencyField> fields;
    if (!here)
        return fields;
    std::vector<NearAirport> airports;
    const Variation variation{.databaseDeg = data.variationDeg.value_or(kNoAngle)};
    findNearAirports(database_, *here, variation, {.count = kLookedAt, .privateAirports = true},
                     airports);
    for (NearAirport& airport : airports) {
        fields.push_back({.airport = std::move(airport)});
        fields.back().follow(data);
    }
    rankFields(fields);
    if (fields.size() > kShown)
        fields.resize(kShown);
    return fields;
}

std::string Emergency::flyTo(const NearAirport& airport) {
    ActiveNavigation& navigation = flight_.navigation();
    if (!before_)
        before_ = navigation.flown();
    field_ = airport.key;
    return navigation.DirectTo(airport.key, "", kNoAltitudeFt, airport.position);
}

void Emergency::update() {
    if (before_ && flight_.navigation().state().activeKey != field_)
        before_.reset();
}

std::string Emergency::end() {
    if (const auto before = std::exchange(before_, std::nullopt)) {
        flight_.navigation().flyAgain(*before);
        flight_.navigation().UpdateActiveLeg();
    }
    return std::string(text(kAircraftTexts.emergencyEnded));
}

}  // namespace korvel
