#pragma once

#include <string>
#include <vector>

#include "map/layers/Layer.h"

namespace korvel {

/// Circles around the aircraft at the display range and at half of it, with their distances over
/// the symbols that lie there.
class RangeRingLayer final : public Layer {
 public:
    using Layer::Layer;

    void layOut(const TextMeasure& texts, LabelRoom& room) override;
    void paint(Canvas& canvas) const override;
    void paintWords(Canvas& canvas) const override;

 private:
    /// The distance of a ring, written on it.
    struct Label {
        std::string text;
        Point at;  ///< its middle
        Rect box;
    };

    std::vector<Label> candidates(const TextMeasure& texts, double distanceNm) const;

    std::vector<Label> labels_;
};

}  // namespace korvel
