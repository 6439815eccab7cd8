#pragma once

#include "map/layers/Layer.h"
#include "map/layers/MapFurniture.h"

namespace korvel {

/// North arrow, range, scale bar, notes, the passing message and the alarm of a lost position.
class FurnitureLayer final : public Layer {
 public:
    using Layer::Layer;

    void layOut(const TextMeasure& texts, LabelRoom& room) override;
    void paint(Canvas& canvas) const override;

 private:
    MapFurniture furniture_;
};

}  // namespace korvel
