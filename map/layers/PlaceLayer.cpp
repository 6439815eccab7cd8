#include "map/layers/PlaceLayer.h"

#include <algorithm>

#include "map/layers/PlaceSymbol.h"

namespace korvel {

void PlaceLayer::layOut(const TextMeasure& texts, LabelRoom& room) {
    const auto layTowns = [&] { towns_ = layOutTowns(content(), texts, room); };
    if (content().places != nullptr)
        layout_ = layOutPlaces(content(), texts, room, layTowns);
    else
        layTowns();
}

void PlaceLayer::paint(Canvas& canvas) const {
    if (layout_.marks.empty())
        return;
    const PlaceSymbols symbols(content());
    // The most important ones on top.
    std::for_each(layout_.marks.rbegin(), layout_.marks.rend(),
                  [&](const PlaceMark& mark) { symbols.paint(canvas, mark); });
}

void PlaceLayer::paintWords(Canvas& canvas) const {
    paintTowns(canvas, content(), towns_);
    for (const PlaceLabel& name : layout_.names)
        canvas.text(name.anchor, name.text, name.style);
}

}  // namespace korvel
