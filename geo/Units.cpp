#include "geo/Units.h"

#include <atomic>

namespace korvel {
namespace {

std::atomic<int> distanceUnit{0};

struct DistanceUnit {
    UnitLabels labels;
    double perNm = 1;
};

constexpr DistanceUnit kNautical{{"nm", "kt"}, 1};
constexpr DistanceUnit kStatute{{"mi", "mph"}, kStatuteMilesPerNm};
constexpr DistanceUnit kMetric{{"km", "kph"}, kKilometresPerNm};

const DistanceUnit& unitInForce() {
    switch (GetDistanceUnit()) {
        case 1:
            return kStatute;
        case 2:
            return kMetric;
        default:
            return kNautical;
    }
}

}  // namespace

void SetDistanceUnit(int unit) { distanceUnit = unit; }

int GetDistanceUnit() { return distanceUnit; }

double ConvertDistance(double nm, UnitLabels* labels) {
    const DistanceUnit& unit = unitInForce();
    if (labels != nullptr) {
        *labels = unit.labels;
    }
    return nm * unit.perNm;
}

}  // namespace korvel
