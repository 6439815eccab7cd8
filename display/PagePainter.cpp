#include "display/PagePainter.h"

#include "display/MapColorCache.h"
#include "display/StatusScreen.h"

namespace korvel {

bool PagePainter::turns(PageId page) { return page == PageId::Map || page == PageId::MapHsi; }

void PagePainter::paint(Canvas& canvas, PageId /*page*/, const CockpitData& data,
                        const MapViewport& /*viewport*/, int /*upTrueDeg*/) const {
    paintStatusScreen(canvas, data, colors_);
}

}  // namespace korvel
