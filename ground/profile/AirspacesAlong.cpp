#include "ground/profile/AirspacesAlong.h"

#include <algorithm>
#include <cmath>
#include <optional>

#include "geo/Geodesy.h"
#include "geo/Longitude.h"
#include "ground/airspace/AirspaceSet.h"

namespace korvel {
namespace {

/// What the line and the edges of airspaces lie in, radians.
struct Bounds {
    explicit Bounds(const std::vector<GeoPoint>& points) {
        for (const GeoPoint point : points) {
            south = std::min(south, point.lat);
            north = std::max(north, point.lat);
            west = std::min(west, point.lon);
            east = std::max(east, point.lon);
        }
    }
    Bounds(GeoPoint a, GeoPoint b)
        : south(std::min(a.lat, b.lat)),
          north(std::max(a.lat, b.lat)),
          west(std::min(a.lon, b.lon)),
          east(std::max(a.lon, b.lon)) {}

    [[nodiscard]] bool touches(const Bounds& other) const {
        return south <= other.north && other.south <= north && west <= other.east &&
               other.west <= east;
    }
    [[nodiscard]] AirspaceBox box() const {
        const auto degrees = [](double lon) { return wrappedLongitudeDeg(lon * kRadToDeg); };
        const bool isWhole = east - west >= kTwoPi;
        return {south * kRadToDeg, isWhole ? -180 : degrees(west), north * kRadToDeg,
                isWhole ? 180 : degrees(east)};
    }

    double south = kPi;
    double north = -kPi;
    double west = 4 * kPi;
    double east = -4 * kPi;
};

/// How far along `a` to `b` the edge crosses, 0 to 1; nothing where it does not.
std::optional<double> crossing(GeoPoint a, GeoPoint b, GeoPoint from, GeoPoint to) {
    const double lat = b.lat - a.lat;
    const double lon = b.lon - a.lon;
    const double edgeLat = to.lat - from.lat;
    const double edgeLon = to.lon - from.lon;
    const double across = lon * edgeLat - lat * edgeLon;
    if (across == 0)
        return std::nullopt;
    const double share = ((from.lon - a.lon) * edgeLat - (from.lat - a.lat) * edgeLon) / across;
    const double alongEdge = ((from.lon - a.lon) * lat - (from.lat - a.lat) * lon) / across;
    const bool meets = share >= 0 && share <= 1 && alongEdge >= 0 && alongEdge <= 1;
    return meets ? std::optional(share) : std::nullopt;
}

class Slicer {
 public:
    explicit Slicer(const ProfileLine& line) : line_(line), bounds_(line.points) {}

    [[nodiscard]] AirspaceBox box() const { return bounds_.box(); }

    void slice(const Airspace& airspace, std::vector<AirspaceSlice>& slices) const {
        Airspace bare = airspace;
        bare.rings.clear();
        bool goesOn = false;
        const std::vector<double> cuts = cutsWith(airspace);
        for (std::size_t i = 0; i + 1 < cuts.size(); ++i) {
            const bool inside = airspace.contains(at((cuts[i] + cuts[i + 1]) / 2));
            if (inside && goesOn)
                slices.back().toNm = cuts[i + 1];
            else if (inside)
                slices.push_back({bare, cuts[i], cuts[i + 1]});
            goesOn = inside;
        }
    }

 private:
    /// Where the line crosses the borders, with its own ends, in order and each once.
    [[nodiscard]] std::vector<double> cutsWith(const Airspace& airspace) const {
        std::vector<double> cuts{0, line_.lengthNm()};
        for (const AirspaceRing& ring : airspace.rings) {
            const double middle = (bounds_.west + bounds_.east) / 2;
            const double turn = std::round((middle - ring.front().lon) / kTwoPi) * kTwoPi;
            GeoPoint from{ring.back().lat, ring.back().lon + turn};
            for (const GeoPoint point : ring) {
                const GeoPoint to{point.lat, point.lon + turn};
                cutAtEdge(from, to, cuts);
                from = to;
            }
        }
        std::ranges::sort(cuts);
        const auto same = std::unique(cuts.begin(), cuts.end());
        cuts.erase(same, cuts.end());
        return cuts;
    }

    void cutAtEdge(GeoPoint from, GeoPoint to, std::vector<double>& cuts) const {
        const Bounds edge(from, to);
        if (!edge.touches(bounds_))
            return;
        for (std::size_t i = 0; i + 1 < line_.points.size(); ++i) {
            const GeoPoint a = line_.points[i];
            const GeoPoint b = line_.points[i + 1];
            if (!edge.touches(Bounds(a, b)))
                continue;
            if (const auto share = crossing(a, b, from, to))
                cuts.push_back(line_.nmOf(i) + *share * line_.stepNm);
        }
    }

    [[nodiscard]] GeoPoint at(double nm) const {
        const double steps = nm / line_.stepNm;
        const auto i = std::min(static_cast<std::size_t>(steps), line_.points.size() - 2);
        const double share = steps - static_cast<double>(i);
        const GeoPoint a = line_.points[i];
        const GeoPoint b = line_.points[i + 1];
        return wrapped({a.lat + share * (b.lat - a.lat), a.lon + share * (b.lon - a.lon)});
    }

    const ProfileLine& line_;
    Bounds bounds_;
};

}  // namespace

std::vector<AirspaceSlice> airspacesAlong(const ProfileLine& line, const AirspaceSet* airspaces) {
    std::vector<AirspaceSlice> slices;
    if (airspaces == nullptr || line.points.size() < 2)
        return slices;
    const Slicer slicer(line);
    for (const std::size_t i : airspaces->touching(slicer.box()))
        slicer.slice(airspaces->all()[i], slices);
    return slices;
}

}  // namespace korvel
