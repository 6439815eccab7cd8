#pragma once

#include <string>
#include <vector>

#include "map/MapGrid.h"
#include "map/layers/Layer.h"

namespace korvel {

/// Meridians and parallels, thin enough to stay behind everything else, and the value of each near
/// the view's edge, where places leave room for it.
class GridLayer final : public Layer {
 public:
    using Layer::Layer;

    void layOut(const TextMeasure& texts, LabelRoom& room) override;
    void paint(Canvas& canvas) const override;
    void paintWords(Canvas& canvas) const override;

 private:
    struct Label {
        std::string text;
        Point at;  ///< its middle
        Rect box;
    };

    TextStyle style() const;

    std::vector<GridLine> lines_;
    std::vector<Label> labels_;
};

}  // namespace korvel
