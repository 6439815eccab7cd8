#pragma once

#include <string>
#include <vector>

#include "map/layers/Layer.h"

namespace korvel {

/// The words of airspaces along their outlines, which the ground has: floor and ceiling, and their
/// names from nearer on.
class AirspaceLayer final : public Layer {
 public:
    using Layer::Layer;

    void layOut(const TextMeasure& texts, LabelRoom& room) override;
    void paint(Canvas& canvas) const override;

 private:
    struct Label {
        std::string text;
        Point at;  ///< its middle
        ColorValue color;
    };

    TextStyle style(ColorValue ink) const;

    std::vector<Label> labels_;
};

}  // namespace korvel
