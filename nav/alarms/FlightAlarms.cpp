#include "nav/alarms/FlightAlarms.h"

#include <cmath>

#include "config/Text.h"
#include "config/texts/FlightTexts.h"

namespace korvel {
namespace {

/// Where a condition begins and where, once it holds, it ends.
struct Threshold {
    double begins;
    double ends;

    [[nodiscard]] double at(bool holds) const { return holds ? ends : begins; }
};

constexpr std::int64_t kOffCourseDelayMs = 5000;
constexpr std::int64_t kArrivingLastsMs = 10000;
constexpr Threshold kOffCourseShare{1.0, 0.9};  // of full scale
constexpr Threshold kArrivalNm{2.0, 2.5};
constexpr Threshold kGearNm{3.0, 3.5};
constexpr Threshold kGearHeightFt{1000, 1200};    // above the airport
constexpr Threshold kGearSpeedShare{1.3, 1.4};    // of the approach speed
constexpr Threshold kStandingOnGroundKt{40, 25};  // who is slower has landed

bool isOffCourse(const FlightSituation& now, bool holds) {
    return now.crossTrackNm &&
           std::abs(*now.crossTrackNm) > now.fullScaleNm * kOffCourseShare.at(holds);
}

bool arrives(const FlightSituation& now, bool holds) {
    return now.destination && now.destination->distanceNm < kArrivalNm.at(holds);
}

bool needsGear(const FlightSituation& now, bool holds) {
    const auto& destination = now.destination;
    if (!now.gearWarning || !destination || !destination->airport ||
        destination->distanceNm >= kGearNm.at(holds))
        return false;
    const auto& speed = now.groundSpeedKt;
    if (speed && *speed < kStandingOnGroundKt.at(holds))
        return false;
    const bool low = now.altitudeFt && destination->elevationFt &&
                     *now.altitudeFt - *destination->elevationFt < kGearHeightFt.at(holds);
    const bool slow = speed && *speed < now.approachSpeedKt * kGearSpeedShare.at(holds);
    return low || slow;
}

std::optional<std::string> wordsIf(bool holds, Text words) {
    return holds ? std::optional(std::string(text(words))) : std::nullopt;
}

}  // namespace

void addFlightAlarms(AlarmBoard& board, const FlightSituation& situation) {
    board.add({.urgency = AlarmUrgency::Warning,
               .condition =
                   [&situation](bool holds) {
                       return wordsIf(needsGear(situation, holds), kFlightTexts.alarmGear);
                   }});
    board.add({.urgency = AlarmUrgency::Caution,
               .delayMs = kOffCourseDelayMs,
               .condition =
                   [&situation](bool holds) {
                       return wordsIf(isOffCourse(situation, holds), kFlightTexts.alarmOffCourse);
                   }});
    board.add({.urgency = AlarmUrgency::Notice,
               .lastsMs = kArrivingLastsMs,
               .condition = [&situation](bool holds) -> std::optional<std::string> {
                   if (!arrives(situation, holds)) {
                       return std::nullopt;
                   }
                   return formatText(kFlightTexts.alarmArriving,
                                     {std::string_view(situation.destination->name)});
               }});
}

}  // namespace korvel
