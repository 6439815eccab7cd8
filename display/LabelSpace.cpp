#include "display/LabelSpace.h"

#include <algorithm>

namespace korvel {

bool overlap(const Rect& a, const Rect& b) {
    return a.x < b.right() && b.x < a.right() && a.y < b.bottom() && b.y < a.bottom();
}

bool LabelSpace::isFree(const Rect& box) const {
    if (box.x < view_.x || box.y < view_.y || box.right() > view_.right() ||
        box.bottom() > view_.bottom())
        return false;
    return std::none_of(taken_.begin(), taken_.end(),
                        [&box](const Rect& other) { return overlap(box, other); });
}

bool LabelSpace::claim(const Rect& box) {
    if (!isFree(box))
        return false;
    reserve(box);
    return true;
}

}  // namespace korvel
