#pragma once

#include <array>
#include <cstddef>
#include <memory>
#include <vector>

#include "geo/GeoPoint.h"
#include "nav/track/Track.h"

namespace korvel {

/// The track at several degrees of detail, so that the map draws a long one in the time of a short
/// one. Grows with the track: what is new since the last update() is added at the end of each
/// level, nothing is thinned twice.
class TrackLevels {
 public:
    static constexpr std::size_t kChunkPoints = 64;

    /// A run of points and the room that they and the point before them take.
    struct Chunk {
        GeoPoint middle;
        double halfLatRad = 0;
        double halfLonRad = 0;  ///< from the middle, the short way around
    };

    struct Level {
        /// Radians; a point that is not valid is a break.
        std::vector<GeoPoint> points;
        /// Of kChunkPoints points each; the last one may be shorter.
        std::vector<Chunk> chunks;
    };

    /// Takes what the track has got since the last call; another track starts anew. Null for none.
    /// True when the levels have changed.
    bool update(const std::shared_ptr<const Track>& track);

    /// The coarsest level that leaves out no turn wider than that; the finest one leaves out 20 ft.
    [[nodiscard]] const Level& levelFor(double spacingNm) const;
    /// Where the track ends; not valid without one or behind a break. Coarse levels end before it.
    [[nodiscard]] GeoPoint end() const { return end_; }

 private:
    static constexpr std::size_t kLevelCount = 12;

    void add(GeoPoint point);
    void addBreak();

    std::shared_ptr<const Track> track_;
    std::size_t taken_ = 0;  ///< slots of the track
    GeoPoint end_;
    std::array<Level, kLevelCount> levels_;
};

}  // namespace korvel
