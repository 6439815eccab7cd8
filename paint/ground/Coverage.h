#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "paint/Canvas.h"

namespace korvel {

/// A point of a raster in 256ths of a pixel.
struct FinePoint {
    int x = 0;
    int y = 0;

    friend bool operator==(const FinePoint&, const FinePoint&) = default;
};

inline constexpr int kFineBits = 8;
inline constexpr int kFine = 1 << kFineBits;

/// Half up; what lies far outside any raster, or is no number, comes to its rim.
FinePoint toFine(Point point);

/// How much of each pixel lies inside rings, anti-aliased: the signed area left of every edge is
/// added to the pixels that it crosses, then summed along each row. All in integers, and an edge is
/// always walked from its upper to its lower end: what two rings share cancels exactly, so that
/// neighbouring tiles show no seam.
class Coverage {
 public:
    /// Of a pixel that is all inside.
    static constexpr int kFull = 256;

    /// A raster of these pixels, all outside.
    Coverage(int width, int height);

    int width() const { return width_; }
    int height() const { return height_; }
    /// All outside again.
    void clear();

    /// An edge of a ring whose inside is on the left as one walks it on a raster whose y grows
    /// downwards, as on a map whose y grows upwards. Edges above, below and right of the raster
    /// cost next to nothing.
    void edge(FinePoint from, FinePoint to);
    /// All edges of a closed ring.
    void ring(std::span<const FinePoint> points);
    /// A band of this width in pixels along the segment, added to what is there: thin lines in one
    /// colour are drawn so.
    void band(Point from, Point to, double width);

    /// The row's pixels, 0 to kFull; false when nothing of it is inside. `room` has width() places.
    bool row(int y, std::span<std::uint16_t> room) const;

 private:
    void slice(int y, FinePoint top, FinePoint bottom, int sign);
    void add(std::int32_t* row, int x, int area, int height);

    int width_;
    int height_;
    std::size_t stride_;
    /// Twice the area to the right of the edges in each pixel, less what the one before it has.
    std::vector<std::int32_t> cells_;
    std::vector<std::uint8_t> touched_;  ///< rows that have any
};

}  // namespace korvel
