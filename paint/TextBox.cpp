#include "paint/TextBox.h"

namespace korvel {

Rect textBox(Point anchor, const TextExtent& extent, const TextStyle& style) {
    double left = anchor.x;
    if (style.alignX != AlignX::Left)
        left -= extent.width * (style.alignX == AlignX::Center ? 0.5 : 1.0);
    double top = anchor.y - extent.capHeight;
    if (style.alignY != AlignY::Baseline)
        top += extent.capHeight * (style.alignY == AlignY::Middle ? 0.5 : 1.0);
    return {left, top, extent.width, extent.capHeight + extent.descent};
}

}  // namespace korvel
