#include "pages/ScreenLayout.h"

#include <algorithm>
#include <cmath>

namespace korvel {
namespace {

constexpr double kNarrowPx = 700;
constexpr double kWidePx = 1400;
// A finger in a glove and in turbulence needs 9 mm; 44 pixels are that on common screens.
constexpr double kTouchMm = 9;
constexpr double kTouchFloorPx = 44;
constexpr double kTouchShareOfHeight = 0.06;  // large windows are looked at from further away
// A screen that reports a nonsensical density must not lose the map to its buttons.
constexpr double kTouchMostOfHeight = 0.2;

double touchBarHeight(const ScreenRequest& request) {
    const double wanted = std::max({kTouchFloorPx, std::ceil(kTouchMm * request.pxPerMm),
                                    std::round(kTouchShareOfHeight * request.height)});
    return std::min(wanted, std::floor(request.height * kTouchMostOfHeight));
}

FieldArrangement arrangementFor(const ScreenRequest& request) {
    if (request.width > kWidePx)
        return FieldArrangement::Column;
    const bool portrait = request.height > request.width;
    return portrait || request.width < kNarrowPx ? FieldArrangement::TwoRows
                                                 : FieldArrangement::OneRow;
}

double statusLineHeight(const ScreenRequest& request) {
    return std::round(std::clamp(request.height * 0.046, 20.0, 40.0));
}

double rowHeight(const ScreenRequest& request) {
    return std::round(std::clamp(request.height * 0.13, 56.0, 92.0));
}

// Takes the fields' place off the page.
void placeFields(const ScreenRequest& request, ScreenLayout& layout) {
    Rect& page = layout.page;
    if (layout.arrangement == FieldArrangement::Column) {
        const double width = std::round(std::clamp(request.width * 0.24, 300.0, 680.0));
        layout.fields = {page.right() - width, page.y, width, page.height};
        page.width -= width;
        return;
    }
    const double rows = layout.arrangement == FieldArrangement::TwoRows ? 2 : 1;
    const double height = std::min(rows * rowHeight(request), std::floor(page.height / 3));
    layout.fields = {page.x, page.y, page.width, height};
    page.y += height;
    page.height -= height;
}

// Takes the profile's place off the page.
void placeProfile(ScreenLayout& layout) {
    Rect& page = layout.page;
    const double height = std::round(std::clamp(page.height * 0.24, 72.0, 160.0));
    // Of a low page the map needs all.
    if (height > page.height / 3)
        return;
    page.height -= height;
    layout.profile = {page.x, page.bottom(), page.width, height};
}

}  // namespace

std::optional<std::size_t> ScreenLayout::buttonAt(Point point) const {
    const auto hit = std::find_if(buttons.begin(), buttons.end(),
                                  [point](const Rect& button) { return button.contains(point); });
    if (hit == buttons.end())
        return std::nullopt;
    return static_cast<std::size_t>(hit - buttons.begin());
}

ScreenLayout layOutScreen(const ScreenRequest& request) {
    ScreenLayout layout;
    layout.page = {0, 0, std::floor(request.width), std::floor(request.height)};
    layout.arrangement = arrangementFor(request);
    if (request.buttonCount > 0) {
        const double height = touchBarHeight(request);
        layout.touchBar = {0, layout.page.height - height, layout.page.width, height};
        layout.buttons = gridCells(layout.touchBar, request.buttonCount, 1);
        layout.page.height -= height;
    }
    if (request.statusLine) {
        const double height = std::min(statusLineHeight(request), layout.page.height);
        layout.status = {0, 0, layout.page.width, height};
        layout.page.y += height;
        layout.page.height -= height;
    }
    if (request.fieldCount > 0)
        placeFields(request, layout);
    if (request.profile)
        placeProfile(layout);
    return layout;
}

std::vector<Rect> gridCells(const Rect& area, std::size_t columns, std::size_t rows) {
    std::vector<Rect> cells;
    cells.reserve(columns * rows);
    const auto edge = [](double start, double length, std::size_t i, std::size_t count) {
        return start + std::round(length * static_cast<double>(i) / static_cast<double>(count));
    };
    for (std::size_t row = 0; row < rows; ++row)
        for (std::size_t column = 0; column < columns; ++column) {
            const double left = edge(area.x, area.width, column, columns);
            const double top = edge(area.y, area.height, row, rows);
            cells.push_back({left, top, edge(area.x, area.width, column + 1, columns) - left,
                             edge(area.y, area.height, row + 1, rows) - top});
        }
    return cells;
}

}  // namespace korvel
