#pragma once

#include <vector>

#include "map/layers/Layer.h"
#include "map/layers/PlanLines.h"
#include "map/layers/PlanMarks.h"

namespace korvel {

/// The legs: passed ones dashed and faded, those ahead thin, the one that is flown wide in the
/// colour of its own, on an approach the extended center line; the course to be intercepted after
/// direct-to with one. Then the waypoints, with their names and altitudes where there is room.
class PlanLayer final : public Layer {
 public:
    using Layer::Layer;

    void layOut(const TextMeasure& texts, LabelRoom& room) override;
    void paint(Canvas& canvas) const override;

 private:
    std::vector<PlanLine> lines_;
    std::vector<PlanMark> marks_;
};

}  // namespace korvel
