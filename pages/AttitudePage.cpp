#include "pages/AttitudePage.h"

#include "config/Text.h"
#include "config/texts/InstrumentTexts.h"
#include "pages/StatusScreen.h"
#include "pages/WarningFlag.h"
#include "paint/MapColorCache.h"
#include "paint/TypeSizes.h"

namespace korvel {

void paintAttitudePage(Canvas& canvas, const AttitudeView& view, const MapColorCache& colors) {
    if (view.picture.pixels.empty()) {
        paintNotice(canvas, view.notice, colors);
        return;
    }
    canvas.bitmap({0, 0}, view.picture);
    if (view.alive)
        return;
    const Rect page{0, 0, canvas.width(), canvas.height()};
    paintWarningCross(canvas, page, colors);
    paintWarningFlag(canvas, page.center(), text(kInstrumentTexts.noAttitude),
                     1.6 * mapTextPx(page.width, page.height), colors);
}

}  // namespace korvel
