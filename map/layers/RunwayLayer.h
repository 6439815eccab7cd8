#pragma once

#include <optional>
#include <string>
#include <vector>

#include "map/layers/Layer.h"

namespace korvel {

struct MapRunway;

/// Runways to scale, with their numbers beyond the ends, so that each is read by who lands on it.
class RunwayLayer final : public Layer {
 public:
    using Layer::Layer;

    void layOut(const TextMeasure& texts, LabelRoom& room) override;
    void paint(Canvas& canvas) const override;
    void paintWords(Canvas& canvas) const override;

 private:
    /// What of a runway the view shows.
    struct Surface {
        std::vector<Point> corners;
        std::optional<Segment> centerLine;  ///< where it is wide enough to carry one
        bool hard;
        bool wide;  ///< enough for its edge to be told from it
    };
    struct Number {
        std::string id;
        Point at;
    };

    void add(const MapRunway& runway, const TextMeasure& texts, LabelRoom& room);
    void addSurface(const MapRunway& runway, Point from, Point to);
    void addNumber(const std::string& id, Point end, Point other, const TextMeasure& texts,
                   LabelRoom& room);
    TextStyle numberStyle() const;

    std::vector<Surface> surfaces_;
    std::vector<Number> numbers_;
};

}  // namespace korvel
