#include "cockpit/NightWatch.h"

#include "config/texts/FlightTexts.h"
#include "geo/GeoText.h"
#include "geo/Sun.h"
#include "nav/alarms/AlarmBoard.h"

namespace korvel {

NightWatch::NightWatch(AlarmBoard& board) {
    constexpr std::int64_t kDelayMs = 10000;  // in a turn the speed over the ground is no measure
    board.add({.urgency = AlarmUrgency::Caution,
               .delayMs = kDelayMs,
               .condition = [this](bool holds) { return condition(holds); }});
}

std::optional<std::string> NightWatch::condition(bool holds) const {
    constexpr std::int64_t kEarlierSec = 300;  // it ends later than it begins
    constexpr double kLongestSec = 86400;
    if (!now_.position || !now_.end || !now_.secondsToEnd || *now_.secondsToEnd > kLongestSec ||
        !sunDay(*now_.position, now_.unixSeconds).isUp(now_.unixSeconds))
        return std::nullopt;
    const std::int64_t arrival = now_.unixSeconds + static_cast<std::int64_t>(*now_.secondsToEnd) +
                                 (holds ? kEarlierSec : 0);
    const SunDay day = sunDay(*now_.end, arrival);
    if (day.isUp(arrival))
        return std::nullopt;
    if (day.kind != SunDay::Kind::RisesAndSets)
        return std::string(text(kFlightTexts.alarmNoSun));
    // That of today, also where the flight ends beyond midnight.
    const std::int64_t set = sunDay(*now_.end, now_.unixSeconds).set;
    return formatText(kFlightTexts.alarmNight,
                      {timeOfDayText(now_.localSecondOfDay + set - now_.unixSeconds)});
}

}  // namespace korvel
