#pragma once

#include <array>
#include <span>
#include <string>
#include <vector>

#include "cockpit/PageId.h"
#include "pages/AlarmBoxes.h"
#include "pages/ScreenLayout.h"
#include "pages/TouchBar.h"
#include "paint/Canvas.h"

namespace korvel {

/// The touch bar, from left to right.
inline constexpr std::array kTouchBar = {
    TouchCommand::Menu, TouchCommand::Page,     TouchCommand::DirectTo, TouchCommand::Nearest,
    TouchCommand::Plan, TouchCommand::Aircraft, TouchCommand::ZoomOut,  TouchCommand::ZoomIn};

/// Where everything stands on the screen at present: fields, page, alarms and touch bar.
class ScreenAreas {
 public:
    /// `letters` measures texts: the alarms' boxes follow their widths.
    void layOut(const ScreenRequest& request, PageId page, std::span<const ShownAlarm> alarms,
                const TextMeasure& letters);

    /// The page is what the strip of alarms leaves of it.
    const ScreenLayout& layout() const { return layout_; }
    const Rect& page() const { return layout_.page; }
    Rect pageWithAlarms() const;
    /// A point of the screen as the page counts it, from its corner.
    Point onPage(Point at) const { return {at.x - layout_.page.x, at.y - layout_.page.y}; }

    /// From the page's corner.
    const AlarmBoxes& alarms() const { return alarms_; }
    /// Whether the boxes are those of these alarms.
    bool areOf(std::span<const ShownAlarm> alarms) const;

 private:
    ScreenLayout layout_;
    AlarmBoxes alarms_;
    std::vector<ShownAlarm> allAlarms_;  // shown or not
};

}  // namespace korvel
