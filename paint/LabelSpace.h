#pragma once

// Keeps labels from standing on each other.

#include <cstddef>
#include <optional>
#include <span>
#include <vector>

#include "paint/Canvas.h"

namespace korvel {

/// Rectangles that only touch do not overlap.
bool overlap(const Rect& a, const Rect& b);

/// How far the point is from the box; 0 inside.
double distanceTo(const Rect& box, Point point);

/// The room that texts and symbols have taken on one picture. Whoever wants to draw a label claims
/// its box first and leaves the label out when it is refused: what is claimed earlier wins.
class LabelSpace {
 public:
    /// Boxes that reach out of `view` are refused.
    explicit LabelSpace(const Rect& view);

    /// Takes the box if it is free.
    bool claim(const Rect& box);
    /// Takes the box whatever is there.
    void reserve(const Rect& box);
    /// Nothing of the box is taken, and all of it lies in the view.
    bool isFree(const Rect& box) const;
    /// Some of the box is taken; it may reach out of the view.
    bool isTaken(const Rect& box) const;

 private:
    /// Calls `visit` with each square of the view that the box touches until that answers true.
    template <class Visit>
    bool anySquare(const Rect& box, Visit visit) const;

    Rect view_;
    std::size_t columns_;
    std::size_t rows_;
    std::vector<std::vector<Rect>> squares_;  ///< the boxes taken in each, row after row
};

/// Claims the first box that is free and keeps off `disliked`; where there is none, the first that
/// is free. Which one it was; nothing when all are refused.
std::optional<std::size_t> claimFirst(LabelSpace& space, std::span<const Rect> boxes,
                                      const LabelSpace& disliked);

}  // namespace korvel
