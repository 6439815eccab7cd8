#pragma once

// What every layer of the map is, and what the layers of one frame share.

#include <string>
#include <vector>

#include "map/MapContent.h"
#include "paint/Canvas.h"
#include "paint/LabelSpace.h"
#include "paint/MapColorCache.h"

namespace korvel {

/// What the layers of one frame share while they are laid out, one after the other: who comes
/// earlier has the better room.
struct LabelRoom {
    /// A point that the plan has named: one name is enough where a place stands there as well.
    struct Named {
        Point at;
        std::string ident;
    };

    explicit LabelRoom(const Rect& view) : taken(view), planLines(view) {}

    LabelSpace taken;          ///< by labels, symbols and boxes
    LabelSpace planLines;      ///< the plan's legs, which names keep off where they can
    std::vector<Named> named;  ///< by the plan
};

/// One layer of the map in one frame. It is laid out first, which finds where things stand, cut to
/// the view, as numbers that a test can look at; then it is painted, which decides nothing any
/// more. The content outlives it.
class Layer {
 public:
    explicit Layer(const MapContent& content) : content_(content) {}
    Layer(const Layer&) = delete;
    Layer& operator=(const Layer&) = delete;
    virtual ~Layer() = default;

    /// Called once, before any layer is painted. Claims the room of labels, and leaves out those
    /// that are refused.
    virtual void layOut(const TextMeasure& /*texts*/, LabelRoom& /*room*/) {}
    virtual void paint(Canvas& canvas) const = 0;
    /// Paints the words that belong to it where the drawing order has them apart, over other
    /// layers: half a name reads as another one.
    virtual void paintWords(Canvas& /*canvas*/) const {}

 protected:
    const MapContent& content() const { return content_; }
    const MapView& view() const { return content_.view; }
    ColorValue color(ColorKey key) const { return content_.colors[key]; }

 private:
    const MapContent& content_;
};

}  // namespace korvel
