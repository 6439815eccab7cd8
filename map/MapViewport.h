#pragma once

// Where the ground lies on the screen: the projection, and the range and point that it starts from.

#include <array>
#include <optional>
#include <string>
#include <utility>

#include "cockpit/PageId.h"
#include "geo/GeoPoint.h"
#include "paint/Canvas.h"

namespace korvel {

class ProfileFile;

/// The display ranges in nautical miles that zooming steps through.
inline constexpr std::array<int, 11> kRangeStepsNm = {1, 4, 8, 15, 25, 40, 65, 100, 250, 500, 1000};
inline constexpr int kDefaultRangeNm = 65;

/// Ground to screen and back, as numbers without state. Miles per degree of longitude are taken at
/// the centre's latitude rounded to a whole degree, for the terrain and everything on it alike, so
/// that all stays aligned.
class MapProjection {
 public:
    /// `center` is the ground under the point `aircraft`, and valid. The map is turned so that the
    /// true direction `angleDeg` points up.
    MapProjection(GeoPoint center, Point aircraft, double pixelsPerNm, int angleDeg);

    /// Pixels from the canvas's top left corner, with fractions. Longitudes are taken the short way
    /// around, across the 180th meridian where that is shorter.
    Point project(GeoPoint point) const;
    /// project() rounded half away from zero from the aircraft's point, for rasters and symbols.
    std::pair<int, int> projectPixel(GeoPoint point) const;
    /// The inverse: latitude not beyond the poles, longitude from -pi up to but not including pi.
    /// The map's new centre after a drag by (dx, dy) is unproject(aircraft - (dx, dy)).
    GeoPoint unproject(Point pixel) const;

    /// How far on the screen a degree of longitude leads east, and one of latitude north: the
    /// projection is affine.
    Point eastPerDegree() const;
    Point northPerDegree() const;

    GeoPoint center() const { return center_; }
    Point aircraft() const { return aircraft_; }
    double pixelsPerNm() const { return pixelsPerNm_; }
    int angleDeg() const { return angleDeg_; }

 private:
    Point offsetOf(GeoPoint point) const;

    GeoPoint center_;
    Point aircraft_;
    double pixelsPerNm_;
    int angleDeg_;
    double lonScale_;  ///< cosine of the rounded latitude
    // Of the turn to the left by the angle: thousands of points are projected for one frame.
    double sine_;
    double cosine_;
};

/// What the pages need to put a position on the screen: the range, and the point that stands for
/// the aircraft. The pause of automatic zoom after a manual one is kept here too.
class MapViewport {
 public:
    /// Takes the saved "Range"; one that is not a step counts as 65.
    void loadRange(ProfileFile& profile);
    /// Saves the configured range with the profile's next save.
    void saveRange(ProfileFile& profile) const;

    /// On every resize and change of page. An odd width or height counts one more.
    void layout(PageId page, int clientWidth, int clientHeight);

    /// A step in or out, as the user asks for it; nothing at either end. With automatic zoom
    /// enabled this pauses it; returns the message that says so, or an empty text.
    std::string zoomIn(bool autoZoom);
    std::string zoomOut(bool autoZoom);
    /// Automatic zoom's way to a range: converted to an integer; below 1 it is ignored. True when
    /// the current range has changed.
    bool setRange(double rangeNm);
    /// A page was chosen together with a range, which becomes configured and current.
    void chooseRange(int rangeNm);
    /// Back to the default page and range: the configured range, and the pause ends at once.
    void returnToConfigured();

    /// Automatic zoom and view rest for 30 seconds; returns the message that says so.
    std::string pauseAutomatic();
    /// Counts the pause down, once per 500 ms tick of the view; returns the message of its end.
    std::string tick();
    bool autoZoomPaused() const { return pauseTicks_ > 0; }

    int configuredRangeNm() const { return configuredRangeNm_; }
    int currentRangeNm() const { return currentRangeNm_; }
    int width() const { return width_; }
    int height() const { return height_; }
    int aircraftX() const { return aircraftX_; }
    Point aircraft() const {
        return {static_cast<double>(aircraftX_), static_cast<double>(aircraftY_)};
    }
    /// Also the pixels that the current range is long: it reaches from the aircraft to the top.
    int aircraftY() const { return aircraftY_; }
    double pixelsPerNm() const;

    /// The projection with `center` under the aircraft and the direction `angleDeg` up.
    MapProjection projection(GeoPoint center, int angleDeg) const;

    friend bool operator==(const MapViewport&, const MapViewport&) = default;

 private:
    std::string zoomTo(std::optional<int> rangeNm, bool autoZoom);

    int configuredRangeNm_ = kDefaultRangeNm;
    int currentRangeNm_ = kDefaultRangeNm;
    int width_ = 0;
    int height_ = 0;
    int aircraftX_ = 0;
    int aircraftY_ = 0;
    int pauseTicks_ = 0;
};

}  // namespace korvel
