#pragma once

#include <optional>
#include <string>
#include <vector>

#include "geo/Units.h"
#include "map/PlanBand.h"
#include "map/layers/Layer.h"

namespace korvel {

/// The lines that say what becomes of the plan: the place, the legs to it and from it, and how much
/// longer the way is. Distances in `unit`.
std::vector<std::string> bandLines(const PlanBand& band, DistanceUnit unit);

/// What a finger pulls of the plan: the new legs, the place, and a box with their figures, which
/// stands clear of the finger.
class PlanBandLayer final : public Layer {
 public:
    using Layer::Layer;

    void layOut(const TextMeasure& texts, LabelRoom& room) override;
    void paint(Canvas& canvas) const override;

    [[nodiscard]] const Rect& box() const { return box_; }

 private:
    void paintBox(Canvas& canvas) const;

    std::vector<std::vector<Point>> legs_;  ///< their connected parts
    Point end_;
    std::vector<std::string> lines_;  ///< none: nothing is pulled
    Rect box_;
};

}  // namespace korvel
