#pragma once

// The breadcrumb track on the map; TrackLevels is where it comes from.

#include <vector>

#include "map/layers/Layer.h"

namespace korvel {

class TrackLevels;

/// What of the track is to be drawn in the view: newest first, cut to it, without what would fall
/// on the same pixels again. A cap keeps a year of circuits from stopping the map; the oldest is
/// left out.
std::vector<Segment> trackSegments(const TrackLevels& track, const MapProjection& projection,
                                   const Rect& view);

/// The breadcrumb track as a thin line.
class TrackLayer final : public Layer {
 public:
    using Layer::Layer;

    void layOut(const TextMeasure& texts, LabelRoom& room) override;
    void paint(Canvas& canvas) const override;

 private:
    std::vector<Segment> segments_;
    double width_ = 1;  ///< pixels
};

}  // namespace korvel
