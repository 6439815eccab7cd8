#pragma once

#include "map/layers/Layer.h"

namespace korvel {

/// Land and water, rivers and borders, under all else.
class GroundLayer final : public Layer {
 public:
    using Layer::Layer;

    void paint(Canvas& canvas) const override;

 private:
    void paintShapes(Canvas& canvas) const;
};

}  // namespace korvel
