#pragma once

#include <string>
#include <vector>

#include "map/layers/Layer.h"

namespace korvel {

/// How far the fuel lasts down to the reserve, at cruise speed and with the wind that is known: a
/// dashed line around the aircraft, amber as the fuel below it.
class EnduranceLayer final : public Layer {
 public:
    using Layer::Layer;

    void layOut(const TextMeasure& texts, LabelRoom& room) override;
    void paint(Canvas& canvas) const override;

 private:
    std::vector<std::vector<Point>> lines_;
    std::string label_;
    Point labelAt_;  ///< its middle
};

}  // namespace korvel
