#include "nav/alarms/AlarmBoard.h"

#include <algorithm>
#include <utility>

namespace korvel {

void AlarmBoard::add(AlarmSource source) {
    const auto place =
        std::ranges::upper_bound(watched_, source.urgency, {},
                                 [](const Watched& watched) { return watched.source.urgency; });
    watched_.insert(place, Watched{.source = std::move(source)});
}

void AlarmBoard::update(std::int64_t nowMs) {
    for (Watched& watched : watched_) {
        std::optional<std::string> words = watched.source.condition(watched.sinceMs.has_value());
        if (!words) {
            watched = Watched{.source = std::move(watched.source)};
            continue;
        }
        watched.words = std::move(*words);
        watched.sinceMs = watched.sinceMs.value_or(nowMs);
        if (!watched.raisedMs && nowMs - *watched.sinceMs >= watched.source.delayMs)
            watched.raisedMs = nowMs;
        const std::int64_t lastsMs = watched.source.lastsMs;
        if (lastsMs > 0 && watched.raisedMs && nowMs - *watched.raisedMs >= lastsMs)
            watched.acknowledged = true;
    }
}

void AlarmBoard::forget() {
    for (Watched& watched : watched_)
        watched = Watched{.source = std::move(watched.source)};
}

std::vector<ShownAlarm> AlarmBoard::shown() const {
    std::vector<ShownAlarm> alarms;
    for (const Watched& watched : watched_)
        if (watched.isShown())
            alarms.push_back({watched.words, watched.source.urgency});
    return alarms;
}

bool AlarmBoard::acknowledge(std::size_t place) {
    for (Watched& watched : watched_) {
        if (watched.isShown() && place-- == 0) {
            watched.acknowledged = true;
            return true;
        }
    }
    return false;
}

}  // namespace korvel
