#include "screen/ScreenAreas.h"

#include <algorithm>

#include "paint/TypeSizes.h"
#include "screen/PagePainter.h"

namespace korvel {

void ScreenAreas::layOut(const ScreenRequest& request, PageId page,
                         std::span<const ShownAlarm> alarms, const TextMeasure& letters) {
    layout_ = layOutScreen(request);
    allAlarms_.assign(alarms.begin(), alarms.end());
    alarms_ = {letters, layout_.page, allAlarms_,
               mapTextPx(layout_.page.width, layout_.page.height), PagePainter::alarmPlace(page)};
    layout_.page.height -= alarms_.stripHeight;
}

Rect ScreenAreas::pageWithAlarms() const {
    Rect whole = layout_.page;
    whole.height += alarms_.stripHeight;
    return whole;
}

bool ScreenAreas::areOf(std::span<const ShownAlarm> alarms) const {
    return std::ranges::equal(allAlarms_, alarms);
}

}  // namespace korvel
