#pragma once

// A page that is a title and a list of rows, as numbers.

#include <cstddef>
#include <optional>
#include <vector>

#include "paint/Canvas.h"

namespace korvel {

/// Where the pilot is in the list.
struct RowListView {
    std::size_t first = 0;  ///< row at the top; further down than there are rows counts as the last
    std::optional<std::size_t> selected{};
};

/// Where the rows of the page stand.
struct RowListLayout {
    Rect title;
    std::vector<Rect> rows;    ///< full width, from the top
    std::size_t firstRow = 0;  ///< index of the one in rows.front()
    std::size_t perPage = 1;   ///< rows that fit; a page further down begins so many later

    /// The row at the top of the last page of `count` rows.
    [[nodiscard]] std::size_t lastFirst(std::size_t count) const {
        return count > perPage ? count - perPage : 0;
    }
    /// Index of the row under a point.
    std::optional<std::size_t> rowAt(Point point) const;
};

/// The title is at least `titlePx` high.
RowListLayout layOutRowList(double width, double height, std::size_t count, const RowListView& view,
                            double titlePx = 0);

}  // namespace korvel
