#include "tools/basemap/BinRings.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <limits>

#include "geo/Geodesy.h"
#include "tools/basemap/Simplify.h"

namespace korvel::making {
namespace {

constexpr double kMetresPerDegree = 111195;
constexpr int kSides = 4;
constexpr std::array<RawPoint, kSides> kCorners{
    RawPoint{kBinEnd, 0}, {kBinEnd, kBinEnd}, {0, kBinEnd}, {0, 0}};

/// How far around the bin a point of an edge lies, counter-clockwise from the south-west corner.
int around(int side, RawPoint point) {
    switch (side) {
        case 0:
            return point.x;
        case 1:
            return kBinEnd + point.y;
        case 2:
            return 3 * kBinEnd - point.x;
        default:
            return 4 * kBinEnd - point.y;
    }
}

struct Crossing {
    int at = 0;
    std::size_t chain = 0;
};

/// The way along the edges from `from` counter-clockwise to `to`: its corners.
void appendCorners(RawLine& ring, int from, int to) {
    const int end = to >= from ? to : to + kSides * kBinEnd;
    for (int corner = from / kBinEnd + 1; corner * kBinEnd < end; ++corner)
        ring.push_back(kCorners[static_cast<std::size_t>((corner - 1) % kSides)]);
}

Scale scaleOf(const MapSheet& sheet, int row) {
    const double metres = sheet.binDegrees * kMetresPerDegree / kBinEnd;
    const double middle = (row + 0.5) * sheet.binDegrees - 90;
    return {.xM = metres * std::cos(middle * kDegToRad), .yM = metres};
}

LatticePoint onLattice(RawPoint point, int steps) {
    const auto toStep = [steps](int value) {
        return static_cast<std::uint16_t>((value * static_cast<long long>(steps) * 2 + kBinEnd) /
                                          (2LL * kBinEnd));
    };
    return {toStep(point.x), toStep(point.y)};
}

std::vector<LatticePoint> onLattice(const RawLine& line, int steps) {
    std::vector<LatticePoint> points;
    for (const RawPoint point : line)
        if (const LatticePoint next = onLattice(point, steps);
            points.empty() || points.back() != next)
            points.push_back(next);
    return points;
}

/// What a bin is of which all crossing shores are left out: what lies around them.
bool backgroundWithout(const ShoreBin& bin, double leastKm2) {
    int level = std::numeric_limits<int>::max();
    for (const ShoreChain& chain : bin.chains)
        if (!chain.isClosed() && chain.areaKm2 < leastKm2)
            level = std::min(level, chain.level - 1);
    if (level == std::numeric_limits<int>::max())
        level = bin.cornerLevel;
    return level % 2 == 1;
}

}  // namespace

std::vector<RawLine> closedRings(const std::vector<ShoreChain>& chains, bool background) {
    std::vector<RawLine> rings;
    std::vector<Crossing> entries;
    for (std::size_t i = 0; i < chains.size(); ++i)
        if (!chains[i].isClosed())
            entries.push_back({around(chains[i].entry, chains[i].points.front()), i});
    std::ranges::stable_sort(entries, {}, &Crossing::at);
    if (entries.empty() && background)
        rings.emplace_back(kCorners.begin(), kCorners.end());
    std::vector<bool> used(chains.size());
    for (const Crossing& start : entries) {
        if (used[start.chain])
            continue;
        RawLine ring;
        std::size_t chain = start.chain;
        do {
            used[chain] = true;
            ring.insert(ring.end(), chains[chain].points.begin(), chains[chain].points.end());
            const int exit = around(chains[chain].exit, chains[chain].points.back());
            auto next = std::ranges::lower_bound(entries, exit, {}, &Crossing::at);
            if (next == entries.end())
                next = entries.begin();
            appendCorners(ring, exit, next->at);
            chain = next->chain;
        } while (!used[chain]);
        rings.push_back(std::move(ring));
    }
    for (const ShoreChain& chain : chains)
        if (chain.isClosed())
            rings.push_back(chain.points);
    return rings;
}

LandBin makeLandBin(const ShoreBin& bin, const MapSheet& sheet, int row, double leastKm2) {
    const Scale scale = scaleOf(sheet, row);
    std::vector<ShoreChain> chains;
    for (const ShoreChain& chain : bin.chains) {
        if (chain.areaKm2 < leastKm2)
            continue;
        chains.push_back(chain);
        chains.back().points = simplified(chain.points, scale, sheet.toleranceM);
        if (chains.back().points.size() < 2)
            chains.pop_back();
    }
    const bool background = backgroundWithout(bin, leastKm2);
    LandBin land;
    for (const RawLine& ring : closedRings(chains, background)) {
        std::vector<LatticePoint> points = onLattice(ring, sheet.steps());
        while (points.size() > 1 && points.back() == points.front())
            points.pop_back();
        if (points.size() >= 3)
            land.tile.add(points);
    }
    const bool crossed =
        std::ranges::any_of(chains, [](const ShoreChain& c) { return !c.isClosed(); });
    if (land.tile.parts() == 0)
        land.state = BinState::Sea;
    else if (!crossed && background && land.tile.parts() == 1)
        land.state = BinState::Land;
    else
        land.state = BinState::Mixed;
    if (land.state != BinState::Mixed)
        land.tile = {};
    return land;
}

MapTile makeLineBin(const LineBin& bin, const MapSheet& sheet, int row, int fromKind, int toKind) {
    const Scale scale = scaleOf(sheet, row);
    MapTile tile;
    for (const KindLine& line : bin) {
        if (line.kind < fromKind || line.kind > toKind)
            continue;
        const auto points =
            onLattice(simplified(line.points, scale, sheet.toleranceM), sheet.steps());
        if (points.size() < 2)
            continue;
        tile.add(points);
        tile.kinds.push_back(static_cast<std::uint8_t>(line.kind));
    }
    return tile;
}

}  // namespace korvel::making
