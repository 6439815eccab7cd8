#pragma once

#include "map/layers/Layer.h"
#include "map/layers/PlaceLayout.h"

namespace korvel {

/// The symbols of airports, navaids and fixes, and their names.
class PlaceLayer final : public Layer {
 public:
    using Layer::Layer;

    void layOut(const TextMeasure& texts, LabelRoom& room) override;
    void paint(Canvas& canvas) const override;
    void paintWords(Canvas& canvas) const override;

 private:
    PlaceLayout layout_;
};

}  // namespace korvel
