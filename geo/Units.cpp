#include "geo/Units.h"

namespace korvel {
namespace {

struct UnitRule {
    UnitLabels labels;
    double perNm = 1;
};

constexpr UnitRule kNautical{{"nm", "kt"}, 1};
constexpr UnitRule kStatute{{"mi", "mph"}, kStatuteMilesPerNm};
constexpr UnitRule kMetric{{"km", "kph"}, kKilometresPerNm};

const UnitRule& ruleOf(DistanceUnit unit) {
    switch (unit) {
        case DistanceUnit::StatuteMiles:
            return kStatute;
        case DistanceUnit::Kilometres:
            return kMetric;
        case DistanceUnit::NauticalMiles:
            break;
    }
    return kNautical;
}

}  // namespace

double ConvertDistance(double nm, DistanceUnit unit, UnitLabels* labels) {
    const UnitRule& rule = ruleOf(unit);
    if (labels != nullptr)
        *labels = rule.labels;
    return nm * rule.perNm;
}

}  // namespace korvel
