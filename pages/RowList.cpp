#include "pages/RowList.h"

#include <algorithm>
#include <cmath>

#include "paint/TypeSizes.h"

namespace korvel {
namespace {

constexpr double kTitleHeights = 2.2;  // of the type size
constexpr double kRowHeights = 3.6;

}  // namespace

std::optional<std::size_t> RowListLayout::rowAt(Point point) const {
    for (std::size_t i = 0; i < rows.size(); ++i)
        if (rows[i].contains(point))
            return firstRow + i;
    return std::nullopt;
}

RowListLayout layOutRowList(double width, double height, std::size_t count, const RowListView& view,
                            double titlePx) {
    const double textPx = mapTextPx(width, height);
    RowListLayout layout;
    layout.title = {0, 0, width, std::max(titlePx, std::round(textPx * kTitleHeights))};
    const double rowHeight = std::round(textPx * kRowHeights);
    const double room = std::max(0.0, height - layout.title.height);
    layout.perPage = std::max<std::size_t>(1, static_cast<std::size_t>(room / rowHeight));
    if (count == 0)
        return layout;
    layout.firstRow = std::min(view.first, count - 1);
    const std::size_t shown = std::min(layout.perPage, count - layout.firstRow);
    for (std::size_t i = 0; i < shown; ++i)
        layout.rows.push_back(
            {0, layout.title.height + rowHeight * static_cast<double>(i), width, rowHeight});
    return layout;
}

}  // namespace korvel
