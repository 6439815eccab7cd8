#pragma once

#include <array>

#include "map/MapViewport.h"
#include "paint/Canvas.h"
#include "paint/ground/Coverage.h"

namespace korvel {

/// The map's projection as the straight line that it is in degrees, for a raster: what lies at one
/// degree comes to the same numbers whoever asks, on both sides of the 180th meridian.
class GroundGrid {
 public:
    /// `topLeft` is the canvas point at the raster's corner, `scale` the raster's pixels in one of
    /// the canvas.
    GroundGrid(const MapProjection& projection, Point topLeft, double scale);

    /// Degrees, longitude counted on beyond 180 where the raster goes on there.
    [[nodiscard]] Point toRaster(double lonDeg, double latDeg) const {
        const double east = lonDeg - lonDeg_;
        const double north = latDeg - latDeg_;
        return {origin_.x + east * east_.x + north * north_.x,
                origin_.y + east * east_.y + north * north_.y};
    }

    /// The inverse: x the longitude, y the latitude in degrees, counted on where the raster goes on
    /// beyond the world. The grid is flat.
    [[nodiscard]] Point degreesAt(Point pixel) const {
        const Point off{pixel.x - origin_.x, pixel.y - origin_.y};
        // The two directions stand upright on each other.
        return {lonDeg_ + (off.x * east_.x + off.y * east_.y) / eastSquare_,
                latDeg_ + (off.x * north_.x + off.y * north_.y) / northSquare_};
    }
    /// A step of one pixel towards the ground's north-west.
    [[nodiscard]] Point northWest() const;

    /// Degrees; east may lie beyond 180 and west below -180.
    struct Box {
        double south = 0;
        double west = 0;
        double north = 0;
        double east = 0;
    };
    /// What a raster of this size shows, at most 180 degrees to each side of the centre.
    [[nodiscard]] Box box(double width, double height) const;
    /// False at the poles, where all longitudes are one: there is nothing to draw.
    [[nodiscard]] bool isFlat() const { return flat_; }
    [[nodiscard]] double centerLonDeg() const { return lonDeg_; }
    [[nodiscard]] double metresPerPixel() const;

 private:
    double lonDeg_;
    double latDeg_;
    Point origin_;
    Point east_;
    Point north_;
    double eastSquare_;
    double northSquare_;
    bool flat_;
};

}  // namespace korvel
