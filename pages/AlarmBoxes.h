#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "cockpit/CockpitData.h"
#include "paint/Canvas.h"

namespace korvel {

class MapColorCache;

/// More are not shown at once: the next ones come up when these are acknowledged.
inline constexpr std::size_t kMostAlarmBoxes = 3;

/// Where the alarms stand, in the order of CockpitData::alarms. On a map they lie over it in a
/// column, in the middle of its upper edge and clear of its corners. Other pages, which have no
/// room to spare, leave them a strip at the lower edge, where as many as fit stand side by side.
struct AlarmBoxes {
    enum class Place : std::uint8_t { OverMap, Strip };

    /// None.
    AlarmBoxes() = default;
    /// `page` is the page with the strip, of which the size counts, and `textPx` the type size of a
    /// map's labels on it.
    AlarmBoxes(const TextMeasure& texts, const Rect& page, std::span<const ShownAlarm> all,
               double textPx, Place place);

    /// Which alarm a finger at this point means.
    std::optional<std::size_t> alarmAt(Point finger) const;

    std::vector<Rect> areas;
    std::vector<ShownAlarm> alarms;  ///< of each
    Font font;                       ///< of the words
    double stripHeight = 0;          ///< that the page leaves; 0 on a map and for no alarms
};

/// A thick frame, a triangle and the words, in the colours of the urgency; information has neither
/// frame nor triangle. Under a strip of them lies the background.
void paintAlarms(Canvas& canvas, const AlarmBoxes& boxes, const MapColorCache& colors);

}  // namespace korvel
