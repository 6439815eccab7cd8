#include "compiler/AirwayChains.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <set>
#include <unordered_map>
#include <utility>

namespace korvel {

namespace {

using PointIndex = AirwayNetwork::PointIndex;

/// Cosine of the turn that a flight a - b - c makes at b: 1 straight on, -1 back. 0 where a
/// position is unknown.
double straightness(const AirwayPoint& a, const AirwayPoint& b, const AirwayPoint& c) {
    if (!a.position || !b.position || !c.position)
        return 0.0;
    const double scale = std::cos(toGeoPoint(*b.position).lat);
    const auto leg = [&](const GeoDegrees& from, const GeoDegrees& to) {
        return std::pair{(nearLongitude(to.lon, from.lon) - from.lon) * scale, to.lat - from.lat};
    };
    const auto [x1, y1] = leg(*a.position, *b.position);
    const auto [x2, y2] = leg(*b.position, *c.position);
    const double lengths = std::hypot(x1, y1) * std::hypot(x2, y2);
    return lengths > 0.0 ? (x1 * x2 + y1 * y2) / lengths : 0.0;
}

/// The segments as an undirected graph in which each segment is walked once.
class SegmentWalk {
 public:
    SegmentWalk(std::span<const AirwayNetwork::Segment> segments,
                std::span<const AirwayPoint> points)
        : points_(points) {
        std::set<std::pair<PointIndex, PointIndex>> seen;
        for (const auto& [a, b] : segments) {
            if (a == b || !seen.insert(std::minmax(a, b)).second)
                continue;
            join(a, b);
            join(b, a);
        }
    }

    std::vector<AirwayChain> chains() {
        std::vector<AirwayChain> all;
        // From the airway's ends first, then from forks with a segment left over, then rings.
        const auto walkFrom = [&](const auto& isStart) {
            for (const PointIndex point : order_)
                while (isStart(open_[point].size()))
                    all.push_back(walk(point));
        };
        walkFrom([](std::size_t left) { return left == 1; });
        walkFrom([](std::size_t left) { return left % 2 == 1; });
        walkFrom([](std::size_t left) { return left != 0; });
        return all;
    }

 private:
    void join(PointIndex from, PointIndex to) {
        auto& neighbours = open_[from];
        if (neighbours.empty())
            order_.push_back(from);
        neighbours.push_back(to);
    }

    AirwayChain walk(PointIndex at) {
        AirwayChain chain{at};
        while (!open_[at].empty()) {
            const PointIndex next = choose(chain);
            std::erase(open_[at], next);
            std::erase(open_[next], at);
            chain.push_back(next);
            at = next;
        }
        return chain;
    }

    /// The neighbour to go on to from the end of the chain: the one straightest ahead.
    PointIndex choose(const AirwayChain& chain) {
        const auto& neighbours = open_[chain.back()];
        if (chain.size() < 2)
            return neighbours.front();
        const auto ahead = [&](PointIndex next) {
            return straightness(points_[chain[chain.size() - 2]], points_[chain.back()],
                                points_[next]);
        };
        return *std::max_element(
            neighbours.begin(), neighbours.end(),
            [&](PointIndex one, PointIndex other) { return ahead(one) < ahead(other); });
    }

    std::span<const AirwayPoint> points_;
    std::vector<PointIndex> order_;
    std::unordered_map<PointIndex, std::vector<PointIndex>> open_;
};

}  // namespace

std::vector<AirwayChain> chainSegments(std::span<const AirwayNetwork::Segment> segments,
                                       std::span<const AirwayPoint> points) {
    return SegmentWalk(segments, points).chains();
}

std::vector<std::string> routeTexts(std::span<const std::string_view> idents, std::size_t longest) {
    std::vector<std::string> texts;
    std::string_view previous;
    for (const auto ident : idents) {
        if (texts.empty()) {
            texts.emplace_back(ident);
        } else {
            if (texts.back().size() + 1 + ident.size() > longest)
                texts.emplace_back(previous);
            texts.back().append(" ").append(ident);
        }
        previous = ident;
    }
    return texts;
}

}  // namespace korvel
