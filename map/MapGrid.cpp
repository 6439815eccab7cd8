#include "map/MapGrid.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <optional>

#include "geo/GeoText.h"
#include "geo/Geodesy.h"
#include "paint/Clip.h"

namespace korvel {
namespace {

// Seconds of arc: half a minute to 10 minutes, 20 and 30 minutes, then whole degrees.
constexpr std::array kStepsSec{30,   60,   120,   300,   600,    1200,   1800,
                               3600, 7200, 18000, 36000, 108000, 162000, 324000};
constexpr double kSecPerDegree = 3600;
constexpr double kClosestPx = 90;
constexpr double kLinesAcrossDiagonal = 9;
constexpr double kShortestDegreePx = 1e-6;

// The map's plane in degrees: where the centre lies and how a degree north and east runs.
class DegreePlane {
 public:
    explicit DegreePlane(const MapProjection& projection)
        : origin_(projection.aircraft()),
          lat_(projection.center().lat * kRadToDeg),
          lon_(projection.center().lon * kRadToDeg) {
        // A degree towards the equator and a degree east are always on the map.
        const double towards = lat_ > 0 ? -1 : 1;
        north_ = offset(projection, {lat_ + towards, lon_}, towards);
        east_ = offset(projection, {lat_, lon_ + 1}, 1);
    }

    double northPx() const { return std::hypot(north_.x, north_.y); }
    double eastPx() const { return std::hypot(east_.x, east_.y); }
    double lat() const { return lat_; }
    double lon() const { return lon_; }

    // Longitudes may run past 180 here.
    Point at(double lat, double lon) const {
        const double n = lat - lat_;
        const double e = lon - lon_;
        return {origin_.x + n * north_.x + e * east_.x, origin_.y + n * north_.y + e * east_.y};
    }

    // Degrees north of the centre; the axes are perpendicular.
    double northOf(Point point) const { return along(point, north_); }
    double eastOf(Point point) const { return along(point, east_); }

 private:
    struct Degrees {
        double lat;
        double lon;
    };

    Point offset(const MapProjection& projection, Degrees to, double sign) const {
        const Point there = projection.project({to.lat * kDegToRad, to.lon * kDegToRad});
        return {(there.x - origin_.x) * sign, (there.y - origin_.y) * sign};
    }
    double along(Point point, Point axis) const {
        const double dx = point.x - origin_.x;
        const double dy = point.y - origin_.y;
        return (dx * axis.x + dy * axis.y) / (axis.x * axis.x + axis.y * axis.y);
    }

    Point origin_;
    Point north_;
    Point east_;
    double lat_;
    double lon_;
};

struct Range {
    double low = 0;
    double high = 0;
};

template <typename Measure>
Range rangeOver(const Rect& view, Measure&& measure) {
    const std::array corners{measure(Point{view.x, view.y}), measure(Point{view.right(), view.y}),
                             measure(Point{view.x, view.bottom()}),
                             measure(Point{view.right(), view.bottom()})};
    const auto [low, high] = std::minmax_element(corners.begin(), corners.end());
    return {*low, *high};
}

// Calls `draw` with each multiple of the step within the range, in degrees.
template <typename Draw>
void forEachStep(const Range& range, int stepSec, Draw&& draw) {
    if (stepSec == 0)
        return;
    const double step = stepSec / kSecPerDegree;
    const auto last = static_cast<long>(std::floor(range.high / step));
    for (auto i = static_cast<long>(std::ceil(range.low / step)); i <= last; ++i)
        draw(static_cast<double>(i * stepSec) / kSecPerDegree);
}

}  // namespace

int gridStepSec(double pixelsPerDegree, double closestPx) {
    const auto* step = std::find_if(kStepsSec.begin(), kStepsSec.end(), [=](int sec) {
        return sec / kSecPerDegree * pixelsPerDegree >= closestPx;
    });
    return step == kStepsSec.end() ? 0 : *step;
}

std::vector<GridLine> gridLines(const MapProjection& projection, const Rect& view) {
    const DegreePlane plane(projection);
    if (plane.eastPx() < kShortestDegreePx)
        return {};  // within half a degree of a pole all longitudes are one
    Range lat = rangeOver(view, [&](Point p) { return plane.lat() + plane.northOf(p); });
    lat = {std::max(lat.low, -90.0), std::min(lat.high, 90.0)};
    Range lon{plane.lon() - 180, plane.lon() + 180};
    const Range seen = rangeOver(view, [&](Point p) { return plane.lon() + plane.eastOf(p); });
    lon = {std::max(lon.low, seen.low), std::min(lon.high, seen.high)};

    const double closest =
        std::max(kClosestPx, std::hypot(view.width, view.height) / kLinesAcrossDiagonal);
    std::vector<GridLine> lines;
    const auto add = [&](Point from, Point to, std::string label) {
        if (const std::optional<Segment> inside = clipSegment({from, to}, view))
            lines.push_back({*inside, std::move(label)});
    };
    const int latStep = gridStepSec(plane.northPx(), closest);
    const int lonStep = gridStepSec(plane.eastPx(), closest);
    forEachStep(
        lat, latStep,
        [&](double degrees) {
            add(plane.at(degrees, lon.low), plane.at(degrees, lon.high),
                latitudeText(degrees, latStep < 60 ? 1 : 0));
        });
    forEachStep(lon, lonStep, [&](double degrees) {
        add(plane.at(lat.low, degrees), plane.at(lat.high, degrees),
            longitudeText(degrees, lonStep < 60 ? 1 : 0));
    });
    return lines;
}

}  // namespace korvel
