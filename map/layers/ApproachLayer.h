#pragma once

// The distances along the extended center line of the runway that is approached.

#include <string>
#include <vector>

#include "cockpit/CockpitData.h"
#include "map/layers/Layer.h"

namespace korvel {

/// A distance from the threshold, marked on the runway's extended center line.
struct ApproachMark {
    Segment tick;       ///< across the center line
    std::string label;  ///< distance, and altitude on the glide path; empty where there is no room
    Point labelAt;      ///< its middle
};

/// A mark for each unit of distance, in the unit of the data, where they do not crowd; else every
/// second or fifth. Their labels take their room, off `lines` where they can. None while no runway
/// is approached.
std::vector<ApproachMark> layOutApproach(const TextMeasure& texts, const CockpitData& data,
                                         const MapProjection& projection, const Rect& view,
                                         double textPx, LabelSpace& labels,
                                         const LabelSpace& lines);

/// The marks, over the line that the plan's layer has drawn.
class ApproachLayer final : public Layer {
 public:
    using Layer::Layer;

    void layOut(const TextMeasure& texts, LabelRoom& room) override;
    void paint(Canvas& canvas) const override;

 private:
    std::vector<ApproachMark> marks_;
};

}  // namespace korvel
