#include "map/layers/TrackLayer.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <optional>
#include <utility>

#include "geo/Geodesy.h"
#include "map/feeds/TrackLevels.h"
#include "paint/Clip.h"

namespace korvel {
namespace {

constexpr std::size_t kMostSegments = 8000;
constexpr double kThinnedPx = 1.5;
constexpr double kCellPx = 2;
constexpr double kMargin = 2;
/// A step that is no longer does not lead out of the map on one side and in again on the other.
constexpr double kSurelyJoinedPx = 300;
/// Up to so many segments are drawn two pixels wide, which costs three times as much.
constexpr std::size_t kMostWide = 2000;
constexpr double kOverlapPx = 0.7;

/// The cells of the view on which the track already lies.
class DrawnCells {
 public:
    explicit DrawnCells(const Rect& view)
        : view_(view),
          columns_(static_cast<std::size_t>(view.width / kCellPx) + 1),
          drawn_(columns_ * (static_cast<std::size_t>(view.height / kCellPx) + 1)) {}

    /// Whether the point's cell had been marked before. The point lies in the view.
    bool mark(Point point) {
        const auto column = static_cast<std::size_t>((point.x - view_.x) / kCellPx);
        const auto row = static_cast<std::size_t>((point.y - view_.y) / kCellPx);
        const std::size_t cell = row * columns_ + column;
        const bool before = drawn_[cell];
        drawn_[cell] = true;
        return before;
    }

 private:
    Rect view_;
    std::size_t columns_;
    std::vector<bool> drawn_;
};

class TrackTracer {
 public:
    TrackTracer(const MapProjection& projection, const Rect& view)
        : projection_(projection), view_(view), cells_(view) {}

    bool isFull() const { return segments_.size() >= kMostSegments; }

    bool isSeen(const TrackLevels::Chunk& chunk) const {
        if (!IsValid(chunk.middle))
            return false;
        // Turned by any angle.
        const double pixelsPerRad = projection_.pixelsPerNm() * kNmPerRadian;
        const double reach = pixelsPerRad * std::hypot(chunk.halfLatRad, chunk.halfLonRad);
        return grown(view_, reach).contains(projection_.project(chunk.middle));
    }

    /// Goes on to an older point.
    void to(GeoPoint point) {
        if (!IsValid(point)) {
            leave();
            return;
        }
        const Point at = projection_.project(point);
        if (anchor_) {
            const double dx = at.x - anchor_->x;
            const double dy = at.y - anchor_->y;
            const double squared = dx * dx + dy * dy;
            if (squared < kThinnedPx * kThinnedPx) {
                skipped_ = at;
                return;
            }
            if (squared < kSurelyJoinedPx * kSurelyJoinedPx || !crossesSeam(point.lon))
                add({*anchor_, at});
        }
        anchor_ = at;
        anchorLon_ = point.lon;
        skipped_.reset();
    }

    /// The next point does not join the last one.
    void leave() {
        if (anchor_ && skipped_)
            add({*anchor_, *skipped_});
        anchor_.reset();
        skipped_.reset();
    }

    std::vector<Segment> take() { return std::move(segments_); }

 private:
    double fromCenter(double lonRad) const {
        return std::remainder(lonRad - projection_.center().lon, kTwoPi);
    }

    /// Between the anchor and that longitude the way leaves the map on one side.
    bool crossesSeam(double lonRad) const {
        return std::abs(fromCenter(lonRad) - fromCenter(anchorLon_)) > kPi;
    }

    void add(Segment segment) {
        if (!view_.contains(segment.from) || !view_.contains(segment.to)) {
            const auto inside = clipSegment(segment, view_);
            if (!inside)
                return;
            segment = *inside;
        }
        const bool fromDrawn = cells_.mark(segment.from);
        const bool toDrawn = cells_.mark(segment.to);
        const double dx = segment.to.x - segment.from.x;
        const double dy = segment.to.y - segment.from.y;
        const bool isShort = dx * dx + dy * dy <= 4 * kCellPx * kCellPx;
        if (!fromDrawn || !toDrawn || !isShort)
            segments_.push_back(segment);
    }

    const MapProjection& projection_;
    Rect view_;
    DrawnCells cells_;
    std::vector<Segment> segments_;
    std::optional<Point> anchor_;
    double anchorLon_ = 0;
    std::optional<Point> skipped_;
};

/// Segments that only touch leave a notch at every joint of a wide line.
void overlapNeighbours(Segment& segment) {
    const double dx = segment.to.x - segment.from.x;
    const double dy = segment.to.y - segment.from.y;
    const double length = std::hypot(dx, dy);
    if (length > 0) {
        const double share = kOverlapPx / length;
        segment = {{segment.from.x - dx * share, segment.from.y - dy * share},
                   {segment.to.x + dx * share, segment.to.y + dy * share}};
    }
}

}  // namespace

std::vector<Segment> trackSegments(const TrackLevels& track, const MapProjection& projection,
                                   const Rect& view) {
    TrackTracer tracer(projection, grown(view, kMargin));
    const TrackLevels::Level& level = track.levelFor(kThinnedPx / projection.pixelsPerNm());
    tracer.to(track.end());
    for (std::size_t i = level.chunks.size(); i-- > 0 && !tracer.isFull();) {
        const std::size_t begin = i * TrackLevels::kChunkPoints;
        std::size_t point = std::min(begin + TrackLevels::kChunkPoints, level.points.size());
        // The last chunk is joined to the end of the track, which it does not hold.
        if (i + 1 < level.chunks.size() && !tracer.isSeen(level.chunks[i])) {
            tracer.leave();
            continue;
        }
        while (point-- > begin)
            tracer.to(level.points[point]);
        if (begin > 0)
            tracer.to(level.points[begin - 1]);
    }
    tracer.leave();
    return tracer.take();
}

void TrackLayer::layOut(const TextMeasure& /*texts*/, LabelRoom& /*room*/) {
    if (content().track == nullptr)
        return;
    segments_ = trackSegments(*content().track, view().projection, view().area);
    if (segments_.size() > kMostWide)
        return;
    width_ = 2;
    std::ranges::for_each(segments_, overlapNeighbours);
}

void TrackLayer::paint(Canvas& canvas) const {
    if (content().track != nullptr)
        canvas.lines(segments_, {.color = color(ColorKey::MapTrack), .width = width_});
}

}  // namespace korvel
