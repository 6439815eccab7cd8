#pragma once

#include "cockpit/CockpitData.h"
#include "pages/EfisPage.h"
#include "paint/Canvas.h"

namespace korvel {

class MapColorCache;

/// What the page "EFIS" tells of the way: where it leads, beside which side of the course the
/// aircraft is, on an approach how far above or below the glide path, and which altitude is wanted.
/// What is absent leaves no scale behind.
void paintEfisGuidance(Canvas& canvas, const CockpitData& data, const EfisLayout& layout,
                       const MapColorCache& colors);

}  // namespace korvel
