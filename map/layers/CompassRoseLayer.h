#pragma once

#include <vector>

#include "map/layers/Layer.h"

namespace korvel {

struct MapPlace;

/// Compass roses around the VORs in use, those between which the leg leads, each turned to its
/// magnetic north; none where that is unknown.
class CompassRoseLayer final : public Layer {
 public:
    using Layer::Layer;

    void layOut(const TextMeasure& texts, LabelRoom& room) override;
    void paint(Canvas& canvas) const override;

 private:
    struct Rose {
        Point center;
        int northDeg = 0;  ///< on the screen, to the right from up
    };

    bool showsRose(const MapPlace& place) const;
    void paint(Canvas& canvas, const Rose& rose) const;

    double radius_ = 0;  ///< pixels, of all
    std::vector<Rose> roses_;
};

}  // namespace korvel
