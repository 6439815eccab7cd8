#include "paint/ground/Coverage.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace korvel {
namespace {

/// Pixels; no raster is larger, and products of two such numbers in 256ths fit 64 bits.
constexpr double kRim = 1 << 20;
/// A pixel's area, doubled.
constexpr int kWholeShift = 2 * kFineBits + 1;

int toFine(double value) {
    if (!(value > -kRim))
        return -static_cast<int>(kRim) * kFine;
    if (value > kRim)
        return static_cast<int>(kRim) * kFine;
    return static_cast<int>(std::floor(value * kFine + 0.5));
}

/// The edge's x at a height between its ends, towards the left: the same for the same edge, whoever
/// asks.
int crossing(FinePoint top, FinePoint bottom, int y) {
    const std::int64_t over = static_cast<std::int64_t>(bottom.x - top.x) * (y - top.y);
    const std::int64_t dy = bottom.y - top.y;
    std::int64_t quotient = over / dy;
    if (over % dy < 0)
        --quotient;
    return top.x + static_cast<int>(quotient);
}

/// The height at which the slice of an edge crosses a column's border.
int heightAt(FinePoint top, FinePoint bottom, int x) {
    const std::int64_t over = static_cast<std::int64_t>(bottom.y - top.y) * (x - top.x);
    return top.y + static_cast<int>(over / (bottom.x - top.x));
}

}  // namespace

FinePoint toFine(Point point) { return {toFine(point.x), toFine(point.y)}; }

Coverage::Coverage(int width, int height)
    : width_(std::max(width, 0)),
      height_(std::max(height, 0)),
      stride_(static_cast<std::size_t>(width_) + 2),
      cells_(stride_ * static_cast<std::size_t>(height_)),
      touched_(static_cast<std::size_t>(height_)) {}

void Coverage::clear() {
    for (std::size_t y = 0; y < touched_.size(); ++y)
        if (std::exchange(touched_[y], std::uint8_t{0}) != 0)
            std::fill_n(cells_.begin() + static_cast<std::ptrdiff_t>(y * stride_), stride_, 0);
}

void Coverage::edge(FinePoint from, FinePoint to) {
    if (from.y == to.y)
        return;
    const int sign = from.y < to.y ? 1 : -1;
    const FinePoint top = sign > 0 ? from : to;
    const FinePoint bottom = sign > 0 ? to : from;
    const int limit = width_ * kFine;
    if (bottom.y <= 0 || top.y >= height_ * kFine || (top.x >= limit && bottom.x >= limit))
        return;
    const int firstRow = std::max(top.y, 0) >> kFineBits;
    const int lastRow = (std::min(bottom.y, height_ * kFine) - 1) >> kFineBits;
    FinePoint above = top;
    if (top.y < 0)
        above = {crossing(top, bottom, 0), 0};
    for (int row = firstRow; row <= lastRow; ++row) {
        const int end = (row + 1) * kFine;
        const FinePoint below =
            bottom.y <= end ? bottom : FinePoint{crossing(top, bottom, end), end};
        slice(row, above, below, sign);
        above = below;
    }
}

/// The part of an edge in one row.
void Coverage::slice(int y, FinePoint top, FinePoint bottom, int sign) {
    const int limit = width_ * kFine;
    if (top.x >= limit && bottom.x >= limit)
        return;
    touched_[static_cast<std::size_t>(y)] = 1;
    std::int32_t* row = cells_.data() + static_cast<std::size_t>(y) * stride_;
    FinePoint left = top.x <= bottom.x ? top : bottom;
    FinePoint right = top.x <= bottom.x ? bottom : top;
    const FinePoint leftEnd = left;
    const FinePoint rightEnd = right;
    // Heights count along the slice from left to right; their sign is the edge's alone.
    const auto heightOf = [sign](FinePoint a, FinePoint b) { return sign * std::abs(b.y - a.y); };
    if (right.x <= 0)
        return add(row, 0, 0, heightOf(left, right));
    if (left.x < 0) {
        const FinePoint border{0, heightAt(leftEnd, rightEnd, 0)};
        add(row, 0, 0, heightOf(left, border));
        left = border;
    }
    if (right.x > limit)
        right = {limit, heightAt(leftEnd, rightEnd, limit)};
    int column = left.x >> kFineBits;
    const int last = std::max(column, (right.x - 1) >> kFineBits);
    for (; column < last; ++column) {
        const int border = (column + 1) * kFine;
        const FinePoint next{border, heightAt(leftEnd, rightEnd, border)};
        add(row, column, left.x + next.x - 2 * column * kFine, heightOf(left, next));
        left = next;
    }
    add(row, column, left.x + right.x - 2 * column * kFine, heightOf(left, right));
}

/// `across`: the sum of where the slice enters and leaves the column, from its left border.
void Coverage::add(std::int32_t* row, int x, int across, int height) {
    const std::int32_t left = height * across;
    row[x] += height * 2 * kFine - left;
    row[x + 1] += left;
}

void Coverage::ring(std::span<const FinePoint> points) {
    if (points.empty())
        return;
    FinePoint from = points.back();
    for (const FinePoint to : points) {
        edge(from, to);
        from = to;
    }
}

void Coverage::band(Point from, Point to, double width) {
    const double length = std::hypot(to.x - from.x, to.y - from.y);
    if (!(length > 0) || !(length < kRim))
        return;
    const double x = (to.y - from.y) / length * width / 2;
    const double y = (from.x - to.x) / length * width / 2;
    const std::array<FinePoint, 4> corners{
        toFine({from.x + x, from.y + y}), toFine({from.x - x, from.y - y}),
        toFine({to.x - x, to.y - y}), toFine({to.x + x, to.y + y})};
    ring(corners);
}

bool Coverage::row(int y, std::span<std::uint16_t> room) const {
    if (touched_[static_cast<std::size_t>(y)] == 0)
        return false;
    const std::int32_t* cells = cells_.data() + static_cast<std::size_t>(y) * stride_;
    std::int32_t sum = 0;
    for (int x = 0; x < width_; ++x) {
        sum += cells[x];
        room[static_cast<std::size_t>(x)] =
            static_cast<std::uint16_t>(std::clamp(sum >> (kWholeShift - kFineBits), 0, kFull));
    }
    return true;
}

}  // namespace korvel
