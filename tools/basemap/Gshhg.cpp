#include "tools/basemap/Gshhg.h"

#include <cmath>
#include <cstddef>

#include "tools/basemap/NetCdf.h"

namespace korvel::making {
namespace {

/// Antarctica's grounding line; the ice's edge is of level 1 already.
constexpr int kGroundingLine = 6;
// A segment's word: the sides that its last and its first point lie on and its level, three bits
// each, the number of points above.
constexpr unsigned kSideMask = 7;
constexpr unsigned kEntryShift = 3;
constexpr unsigned kLevelShift = 6;
constexpr unsigned kCountShift = 9;
/// A bin's word has the level at each corner, four bits each.
constexpr unsigned kCornerMask = 15;

/// Offsets are unsigned 16 bits in a signed variable.
int unsigned16(int value) { return value & 0xFFFF; }

/// Where a bin of the file, which begins at Greenwich in the north, lies with us.
std::size_t ourBin(std::size_t bin, std::size_t columns, std::size_t rows) {
    return (rows - 1 - bin / columns) * columns + (bin % columns + columns / 2) % columns;
}

/// What both kinds of file have in common.
struct Binned {
    explicit Binned(const NetCdf& file)
        : binDegrees(file.integers("Bin_size_in_minutes").at(0) / 60),
          columns(static_cast<std::size_t>(360 / binDegrees)),
          rows(static_cast<std::size_t>(180 / binDegrees)),
          firstSegment(file.integers("Id_of_first_segment_in_a_bin")),
          segmentCount(file.integers("N_segments_in_a_bin")),
          firstPoint(file.integers("Id_of_first_point_in_a_segment")),
          x(file.integers("Relative_longitude_from_SW_corner_of_bin")),
          y(file.integers("Relative_latitude_from_SW_corner_of_bin")) {}

    RawLine points(std::size_t segment, std::size_t count) const {
        RawLine line(count);
        const auto first = static_cast<std::size_t>(firstPoint.at(segment));
        for (std::size_t i = 0; i < count; ++i)
            line[i] = {unsigned16(x.at(first + i)), unsigned16(y.at(first + i))};
        return line;
    }
    /// Calls `take` with each of our bins and each segment of the file in it.
    template <class Take>
    void each(Take take) const {
        for (std::size_t bin = 0; bin < columns * rows; ++bin) {
            const auto first = static_cast<std::size_t>(firstSegment.at(bin));
            const auto count = static_cast<std::size_t>(unsigned16(segmentCount.at(bin)));
            for (std::size_t segment = first; segment < first + count; ++segment)
                take(ourBin(bin, columns, rows), segment);
        }
    }

    int binDegrees;
    std::size_t columns;
    std::size_t rows;
    std::vector<int> firstSegment;
    std::vector<int> segmentCount;
    std::vector<int> firstPoint;
    std::vector<int> x;
    std::vector<int> y;
};

}  // namespace

World<ShoreBin> readShores(const std::string& path) {
    const NetCdf file(path);
    const Binned binned(file);
    const auto words = file.integers("Embedded_npts_levels_exit_entry_for_a_segment");
    const auto corners = file.integers("Embedded_node_levels_in_a_bin");
    const auto polygons = file.integers("Id_of_GSHHS_ID");
    const auto areas = file.numbers("The_km_squared_area_of_polygons");
    World<ShoreBin> world{.binDegrees = binned.binDegrees,
                          .bins = std::vector<ShoreBin>(binned.columns * binned.rows)};
    for (std::size_t bin = 0; bin < world.bins.size(); ++bin)
        world.bins[ourBin(bin, binned.columns, binned.rows)].cornerLevel =
            static_cast<int>(static_cast<unsigned>(corners.at(bin)) & kCornerMask);
    binned.each([&](std::size_t bin, std::size_t segment) {
        const auto word = static_cast<unsigned>(words.at(segment));
        ShoreChain chain;
        chain.level = static_cast<int>((word >> kLevelShift) & kSideMask);
        if (chain.level == kGroundingLine)
            return;
        chain.exit = static_cast<int>(word & kSideMask);
        chain.entry = static_cast<int>((word >> kEntryShift) & kSideMask);
        chain.points = binned.points(segment, word >> kCountShift);
        // Rivers as wide as lakes have theirs below zero.
        chain.areaKm2 = std::abs(areas.at(static_cast<std::size_t>(polygons.at(segment))));
        if (chain.points.size() >= 2)
            world.bins[bin].chains.push_back(std::move(chain));
    });
    return world;
}

World<LineBin> readLines(const std::string& path) {
    const NetCdf file(path);
    const Binned binned(file);
    const auto counts = file.integers("N_points_for_a_segment");
    const auto kinds = file.integers("Hierarchial_level_of_a_segment");
    World<LineBin> world{.binDegrees = binned.binDegrees,
                         .bins = std::vector<LineBin>(binned.columns * binned.rows)};
    binned.each([&](std::size_t bin, std::size_t segment) {
        const auto count = static_cast<std::size_t>(unsigned16(counts.at(segment)));
        if (count >= 2)
            world.bins[bin].push_back({kinds.at(segment), binned.points(segment, count)});
    });
    return world;
}

}  // namespace korvel::making
