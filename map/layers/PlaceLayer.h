#pragma once

#include <vector>

#include "map/layers/Layer.h"
#include "map/layers/PlaceLayout.h"
#include "map/layers/TownLayout.h"

namespace korvel {

/// The symbols of airports, navaids, fixes and towns, and their names.
class PlaceLayer final : public Layer {
 public:
    using Layer::Layer;

    void layOut(const TextMeasure& texts, LabelRoom& room) override;
    void paint(Canvas& canvas) const override;
    void paintWords(Canvas& canvas) const override;

 private:
    PlaceLayout layout_;
    std::vector<TownMark> towns_;
};

}  // namespace korvel
