#pragma once

#include <span>
#include <string>
#include <vector>

#include "cockpit/Modes.h"
#include "paint/Canvas.h"

namespace korvel {

class MapColorCache;

/// Where a mark stands in the status line, and what it says there.
struct StatusMark {
    Rect area;
    std::string words;
    std::optional<AlarmUrgency> urgency;
};

/// The marks of the status line from left to right.
struct StatusLine {
    /// All of them fit, however narrow the line is: the words are the short ones where the long
    /// ones do not, then the letters become smaller.
    StatusLine(const TextMeasure& texts, double width, double height, std::span<const Mode> modes);

    Font font;
    std::vector<StatusMark> marks;
};

/// Fills the whole canvas, the line, with it.
void paintStatusLine(Canvas& canvas, std::span<const Mode> modes, const MapColorCache& colors);

}  // namespace korvel
