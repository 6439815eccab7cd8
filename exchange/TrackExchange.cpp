#include "exchange/TrackExchange.h"

#include <algorithm>

#include "base/Calendar.h"
#include "geo/Geodesy.h"

namespace korvel {

std::vector<std::optional<ForeignTrackPoint>> foreignTrack(const Track::Recording& recording,
                                                           const Clock& clock) {
    std::vector<std::optional<ForeignTrackPoint>> points;
    points.reserve(recording.slots.size());
    for (const auto& slot : recording.slots) {
        auto& point = points.emplace_back();
        if (slot)
            point = {.position = slot->position,
                     .unixS = clock.unixSecondsAt(localTimeAt(recording.baseS + slot->offsetS)),
                     .altitudeFt = static_cast<double>(slot->altitudeFt),
                     .groundSpeedKt = static_cast<double>(slot->groundSpeedKt),
                     .trackDeg = static_cast<double>(slot->trackDeg)};
    }
    return points;
}

std::int64_t localSecondsAt(std::int64_t unixS, const Clock& clock) {
    // The zone's offset at about that moment, and once more where it changes just then.
    std::int64_t local = unixS;
    for (int i = 0; i < 2; ++i)
        local += unixS - clock.unixSecondsAt(localTimeAt(local));
    return local;
}

TrackLines trackLinesOf(const ForeignTrack& track, const Clock& clock) {
    TrackLines lines;
    lines.error = track.error;
    bool isFirst = true;
    std::int64_t localS = 0;
    for (const auto& point : track.points) {
        auto& slot = lines.slots.emplace_back();
        if (!point)
            continue;
        localS = point->unixS ? localSecondsAt(*point->unixS, clock) : localS + 1;
        if (isFirst)
            lines.baseS = localS;
        isFirst = false;
        slot = {.offsetS = static_cast<std::uint32_t>(
                    std::clamp<std::int64_t>(localS - lines.baseS, 0, 0xFFFFFFFF)),
                .position = point->position,
                .groundSpeedKt = RoundToInt(point->groundSpeedKt),
                .trackDeg = RoundToInt(point->trackDeg),
                .altitudeFt = RoundToInt(point->altitudeFt)};
    }
    return lines;
}

}  // namespace korvel
