#include "paint/LabelSpace.h"

#include <algorithm>
#include <cmath>

namespace korvel {
namespace {

// A few labels long: a box touches a handful of squares, and a square holds a handful of boxes.
constexpr double kSquarePx = 64;

std::size_t squaresAlong(double length) {
    return static_cast<std::size_t>(std::max(1.0, std::ceil(length / kSquarePx)));
}

std::size_t squareAt(double offset, std::size_t count) {
    return static_cast<std::size_t>(
        std::clamp(std::floor(offset / kSquarePx), 0.0, static_cast<double>(count - 1)));
}

}  // namespace

bool overlap(const Rect& a, const Rect& b) {
    return a.x < b.right() && b.x < a.right() && a.y < b.bottom() && b.y < a.bottom();
}

double distanceTo(const Rect& box, Point point) {
    return std::hypot(point.x - std::clamp(point.x, box.x, box.right()),
                      point.y - std::clamp(point.y, box.y, box.bottom()));
}

LabelSpace::LabelSpace(const Rect& view)
    : view_(view),
      columns_(squaresAlong(view.width)),
      rows_(squaresAlong(view.height)),
      squares_(columns_ * rows_) {}

// What lies outside the view counts to the square at its edge.
template <class Visit>
bool LabelSpace::anySquare(const Rect& box, Visit visit) const {
    const std::size_t left = squareAt(box.x - view_.x, columns_);
    const std::size_t right = squareAt(box.right() - view_.x, columns_);
    const std::size_t bottom = squareAt(box.bottom() - view_.y, rows_);
    for (std::size_t row = squareAt(box.y - view_.y, rows_); row <= bottom; ++row)
        for (std::size_t column = left; column <= right; ++column)
            if (visit(row * columns_ + column))
                return true;
    return false;
}

bool LabelSpace::isTaken(const Rect& box) const {
    return anySquare(
        box,
        [&](std::size_t square) {
            return std::any_of(
                squares_[square].begin(), squares_[square].end(),
                [&box](const Rect& other) { return overlap(box, other); });
        });
}

bool LabelSpace::isFree(const Rect& box) const {
    return box.x >= view_.x && box.y >= view_.y && box.right() <= view_.right() &&
           box.bottom() <= view_.bottom() && !isTaken(box);
}

void LabelSpace::reserve(const Rect& box) {
    anySquare(
        box,
        [&](std::size_t square) {
            squares_[square].push_back(box);
            return false;
        });
}

bool LabelSpace::claim(const Rect& box) {
    if (!isFree(box))
        return false;
    reserve(box);
    return true;
}

std::optional<std::size_t> claimFirst(LabelSpace& space, std::span<const Rect> boxes,
                                      const LabelSpace& disliked) {
    std::optional<std::size_t> first;
    for (std::size_t i = 0; i < boxes.size(); ++i) {
        if (!space.isFree(boxes[i]))
            continue;
        const bool isLiked = !disliked.isTaken(boxes[i]);
        if (isLiked || !first)
            first = i;
        if (isLiked)
            break;
    }
    if (first)
        space.reserve(boxes[*first]);
    return first;
}

}  // namespace korvel
