#include "nav/track/Track.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

#include "base/Calendar.h"

namespace korvel {

void Track::anchor(Recording& recording, std::int64_t notBeforeS) const {
    recording.anchorS_ = std::max(localSeconds(clock_.localNow()), notBeforeS);
    recording.anchorTickMs_ = clock_.tickMs();
}

void Track::setPendingBreak() {
    const auto recording = recording_.lock();
    // Behind a break there is nothing to join.
    recording->breakPending_ = recording->slots.empty() || recording->slots.back().has_value();
}

std::size_t Track::returnToTimeOfDay() {
    const auto recording = recording_.lock();
    auto& slots = recording->slots;
    recording->breakPending_ = false;
    anchor(*recording, recording->baseS);
    if (slots.empty() || !slots.back().has_value())
        return 0;
    slots.emplace_back();
    return 1;
}

std::size_t Track::AddTrackPoint(GeoPoint position, std::int32_t groundSpeedKt,
                                 std::int32_t trackDeg, std::int32_t altitudeFt) {
    if (!IsValid(position))
        return 0;
    const auto recording = recording_.lock();
    auto& slots = recording->slots;
    if (slots.empty()) {
        anchor(*recording, std::numeric_limits<std::int64_t>::min());
        recording->baseS = recording->anchorS_;
    }
    const std::int64_t elapsedS = recording->anchorS_ - recording->baseS +
                                  (clock_.tickMs() - recording->anchorTickMs_) / 1000;
    const bool lastIsPoint = !slots.empty() && slots.back().has_value();
    if (lastIsPoint && (SamePoint(slots.back()->position, position) ||
                        elapsedS < std::int64_t{slots.back()->offsetS} + kMinimumIntervalS))
        return 0;
    if (elapsedS < 0 || elapsedS > std::numeric_limits<std::uint32_t>::max())
        return 0;
    const bool withBreak = recording->breakPending_ && lastIsPoint;
    if (withBreak) {
        slots.emplace_back();
        recording->breakPending_ = false;
    }
    slots.emplace_back(TrackPoint{.offsetS = static_cast<std::uint32_t>(elapsedS),
                                  .position = position,
                                  .groundSpeedKt = groundSpeedKt,
                                  .trackDeg = trackDeg,
                                  .altitudeFt = altitudeFt});
    return withBreak ? 2 : 1;
}

bool Track::WriteTrackText(std::string& text) const {
    const auto recording = recording_.lock();
    text.clear();
    for (const auto& slot : recording->slots)
        text += trackLine(recording->baseS, slot);
    return true;
}

bool Track::canGoOn() const {
    constexpr std::int64_t kYearS = 366 * 86'400;
    const auto recording = recording_.lock();
    return recording->anchorS_ - recording->baseS <=
           std::numeric_limits<std::uint32_t>::max() - kYearS;
}

std::string Track::lastLines(std::size_t count) const {
    const auto recording = recording_.lock();
    const auto& slots = recording->slots;
    std::string lines;
    for (std::size_t i = slots.size() - std::min(count, slots.size()); i < slots.size(); ++i)
        lines += trackLine(recording->baseS, slots[i]);
    return lines;
}

bool Track::ReadTrackText(std::string_view text) {
    TrackLines lines = parseTrackText(text, BadLines::Refuse);
    const bool read = lines.error.empty();
    take(std::move(lines));
    return read;
}

void Track::take(TrackLines lines) {
    const auto recording = recording_.lock();
    *recording = {};
    recording->baseS = lines.baseS;
    recording->slots = std::move(lines.slots);
    // Recording goes on behind the last point even where the wall clock is behind the file's.
    std::int64_t lastS = recording->baseS;
    for (const auto& slot : recording->slots)
        lastS = slot ? std::max(lastS, recording->baseS + slot->offsetS) : lastS;
    anchor(*recording, lastS);
}

}  // namespace korvel
