#pragma once

// The ruler on the map; MeasureTool is what the pilot's fingers do with it.

#include <optional>
#include <string>
#include <vector>

#include "map/MeasureTool.h"
#include "map/layers/Layer.h"

namespace korvel {

/// Where the ruler's words stand, as numbers.
struct MeasureLook {
    Rect close;  ///< the button that ends measuring
    Rect label;  ///< around the lines; empty without any
    std::vector<std::string> lines;
};

/// The button that ends measuring, below the range at the map's right edge. Large enough for a
/// finger.
Rect measureCloseBox(double viewWidth, double textPx);

/// The lines of the label: the ends' names if any, distance and time, the bearings of both ways.
std::vector<std::string> measureLines(const MeasureTool& tool, const MeasureFigures& figures,
                                      DistanceUnit unit);

/// Finds room for the label where the line's middle is seen, always whole inside the view, and
/// takes it. Nothing while the tool is off.
std::optional<MeasureLook> layOutMeasure(const TextMeasure& texts, const MeasureTool& tool,
                                         const CockpitData& data, const MapProjection& projection,
                                         const Rect& view, double textPx, LabelSpace& labels);

/// The ruler: its line, its ends, its label and the button that ends it.
class MeasureLayer final : public Layer {
 public:
    using Layer::Layer;

    void layOut(const TextMeasure& texts, LabelRoom& room) override;
    void paint(Canvas& canvas) const override;

 private:
    std::optional<MeasureLook> look_;
    std::vector<std::vector<Point>> line_;  ///< its connected parts
    std::vector<Point> ends_;               ///< those in the view
};

}  // namespace korvel
