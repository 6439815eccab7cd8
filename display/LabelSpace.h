#pragma once

#include <vector>

#include "display/Canvas.h"

namespace korvel {

/// Rectangles that only touch do not overlap.
bool overlap(const Rect& a, const Rect& b);

/// The room that texts and symbols have taken on one picture. Whoever wants to draw a label claims
/// its box first and leaves the label out when it is refused: what is claimed earlier wins.
class LabelSpace {
 public:
    /// Boxes that reach out of `view` are refused.
    explicit LabelSpace(const Rect& view) : view_(view) {}

    /// Takes the box if it is free.
    bool claim(const Rect& box);
    /// Takes the box whatever is there.
    void reserve(const Rect& box) { taken_.push_back(box); }
    bool isFree(const Rect& box) const;

 private:
    Rect view_;
    std::vector<Rect> taken_;
};

}  // namespace korvel
