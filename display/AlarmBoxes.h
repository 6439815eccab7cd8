#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "display/Canvas.h"

namespace korvel {

class MapColorCache;

/// More are not shown at once: the next ones come up when these are acknowledged.
inline constexpr std::size_t kMostAlarmBoxes = 3;

/// A column of boxes in the middle of a page, in the order of CockpitData::alarms: at the upper
/// edge of a map, clear of its corners, at the lower edge of other pages. `textPx` is the type size
/// of the map's labels.
struct AlarmBoxes {
    AlarmBoxes(const Canvas& canvas, std::span<const std::string> alarms, double textPx,
               bool onMap);

    /// Which alarm a finger at this point means.
    std::optional<std::size_t> alarmAt(Point finger) const;

    std::vector<Rect> areas;
};

/// A thick frame, a warning triangle and the words in the colour of danger.
void paintAlarms(Canvas& canvas, std::span<const std::string> alarms, const AlarmBoxes& boxes,
                 const MapColorCache& colors, double textPx);

}  // namespace korvel
