#include "tools/basemap/Simplify.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <utility>

namespace korvel::making {
namespace {

struct Spot {
    double x;
    double y;
};

Spot toMetres(RawPoint point, const Scale& scale) {
    return {point.x * scale.xM, point.y * scale.yM};
}

double awayFrom(Spot point, Spot from, Spot to) {
    const double dx = to.x - from.x;
    const double dy = to.y - from.y;
    const double square = dx * dx + dy * dy;
    const double along =
        square == 0
            ? 0
            : std::clamp(((point.x - from.x) * dx + (point.y - from.y) * dy) / square, 0.0, 1.0);
    return std::hypot(point.x - from.x - along * dx, point.y - from.y - along * dy);
}

/// The point between two of a line that lies farthest from the straight one, and how far.
std::pair<std::size_t, double> farthest(const RawLine& line, const Scale& scale, std::size_t first,
                                        std::size_t last) {
    std::pair<std::size_t, double> found{first, -1};
    const Spot from = toMetres(line[first], scale);
    const Spot to = toMetres(line[last], scale);
    for (std::size_t i = first + 1; i < last; ++i) {
        const double away = awayFrom(toMetres(line[i], scale), from, to);
        if (away > found.second)
            found = {i, away};
    }
    return found;
}

}  // namespace

RawLine simplified(const RawLine& line, const Scale& scale, double toleranceM) {
    if (toleranceM <= 0 || line.size() < 3)
        return line;
    const bool closed = line.front() == line.back();
    std::vector<bool> kept(line.size());
    kept.front() = kept.back() = true;
    std::vector<std::pair<std::size_t, std::size_t>> open{{0, line.size() - 1}};
    while (!open.empty()) {
        const auto [first, last] = open.back();
        open.pop_back();
        if (last - first < 2)
            continue;
        const auto [at, away] = farthest(line, scale, first, last);
        if (away <= toleranceM)
            continue;
        kept[at] = true;
        open.emplace_back(first, at);
        open.emplace_back(at, last);
    }
    RawLine result;
    for (std::size_t i = 0; i < line.size(); ++i)
        if (kept[i])
            result.push_back(line[i]);
    if (!closed || result.size() >= 4)
        return result;
    if (result.size() < 3)
        return {};
    // A sliver: its two ends and the point that is farthest from the line between them.
    const auto middle = static_cast<std::size_t>(std::ranges::find(line, result[1]) - line.begin());
    const auto before = farthest(line, scale, 0, middle);
    const auto behind = farthest(line, scale, middle, line.size() - 1);
    if (std::max(before.second, behind.second) <= 0)
        return {};
    if (before.second >= behind.second)
        return {line.front(), line[before.first], line[middle], line.back()};
    return {line.front(), line[middle], line[behind.first], line.back()};
}

}  // namespace korvel::making
