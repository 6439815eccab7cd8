#pragma once

#include <optional>

#include "map/layers/Layer.h"

namespace korvel {

/// The aircraft: a solid symbol along its track; a ring with a dot while the direction is unknown;
/// hollow and crossed out where the position was lost.
class AircraftLayer final : public Layer {
 public:
    using Layer::Layer;

    void layOut(const TextMeasure& texts, LabelRoom& room) override;
    void paint(Canvas& canvas) const override;

 private:
    void paintLost(Canvas& canvas) const;

    Point at_{};
    double size_ = 0;                 ///< half its length, pixels
    std::optional<double> angleDeg_;  ///< on the screen, to the right from up
    bool isSeen_ = false;
};

/// The square that the symbol covers in any direction.
Rect aircraftArea(Point center, double textPx);

}  // namespace korvel
