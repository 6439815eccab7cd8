#pragma once

#include <cstddef>
#include <optional>
#include <vector>

#include "cockpit/CockpitData.h"
#include "paint/Canvas.h"

namespace korvel {

class MapColorCache;

/// Where the pilot is in the list.
struct NearestView {
    std::size_t first = 0;  ///< row at the top; further down than there are rows counts as the last
    std::optional<std::size_t> selected{};
};

/// Where the rows of the page stand.
struct NearestLayout {
    Rect title;
    std::vector<Rect> rows;    ///< full width, from the top
    std::size_t firstRow = 0;  ///< index of the airport in rows.front()
    std::size_t perPage = 1;   ///< rows that fit; a page further down begins so many later

    /// Index of the airport under a point.
    std::optional<std::size_t> rowAt(Point point) const;
};

NearestLayout layOutNearestPage(double width, double height, std::size_t airports,
                                const NearestView& view);

/// The nearest airports, a row each; without any it says why. Fills the whole canvas.
void paintNearestPage(Canvas& canvas, const CockpitData& data, const NearestView& view,
                      const MapColorCache& colors);

}  // namespace korvel
