#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

#include "paint/Canvas.h"

namespace korvel {

/// How the navigation fields stand.
enum class FieldArrangement : std::uint8_t {
    OneRow,
    TwoRows,  ///< in portrait and in narrow windows
    Column    ///< two wide, at the right of a wide window
};

struct ScreenRequest {
    double width = 0;   ///< device-independent pixels
    double height = 0;  ///< device-independent pixels
    /// Device-independent pixels per millimetre of glass; 0 when the system does not tell.
    double pxPerMm = 0;
    bool statusLine = false;
    std::size_t fieldCount = 0;   ///< 0 leaves out the field strip
    std::size_t buttonCount = 0;  ///< 0 leaves out the touch bar
    bool profile = false;         ///< the strip under the page, where it is high enough for both
};

/// Where everything stands in the window: the status line, the field strip, the page (map), the
/// profile and the touch bar. The same on every page, so that a hand finds the buttons without
/// looking. Parts left out are empty rectangles and the page takes their room. All parts lie on
/// whole pixels.
struct ScreenLayout {
    Rect status;  ///< along the upper edge
    Rect fields;
    FieldArrangement arrangement = FieldArrangement::OneRow;
    Rect page;
    Rect profile;  ///< under the page
    Rect touchBar;
    std::vector<Rect> buttons;  ///< from left to right, filling the touch bar

    /// The button under a point of the window.
    std::optional<std::size_t> buttonAt(Point point) const;
};

ScreenLayout layOutScreen(const ScreenRequest& request);

/// Cuts `area` into `columns` by `rows` cells on whole pixels without gaps, row after row.
std::vector<Rect> gridCells(const Rect& area, std::size_t columns, std::size_t rows);

}  // namespace korvel
