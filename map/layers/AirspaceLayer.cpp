#include "map/layers/AirspaceLayer.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>

#include "map/ground/AirspaceLines.h"
#include "map/ground/GroundPicture.h"
#include "paint/Clip.h"
#include "paint/TextBox.h"

namespace korvel {
namespace {

constexpr int kNamesToNm = 25;
constexpr std::size_t kMostLabels = 40;
constexpr double kTextShare = 0.85;  ///< of the map's other labels
constexpr double kLeastEdgePx = 60;  ///< a shorter edge has no room for words
constexpr double kOffEdgePx = 10;

/// The longest part of the outline that can be seen.
std::optional<Segment> longestEdge(std::span<const Point> outline, const Rect& view) {
    std::optional<Segment> longest;
    double most = kLeastEdgePx;
    clipPolyline(outline, view, [&](std::span<const Point> piece) {
        // A rounded outline has short edges only: its words go along ten of them.
        constexpr std::size_t kTogether = 10;
        for (std::size_t i = 0; i + 1 < piece.size(); ++i) {
            for (const std::size_t end : {i + 1, std::min(i + kTogether, piece.size() - 1)}) {
                const double length =
                    std::hypot(piece[end].x - piece[i].x, piece[end].y - piece[i].y);
                if (length > most) {
                    most = length;
                    longest = Segment{piece[i], piece[end]};
                }
            }
        }
    });
    return longest;
}

}  // namespace

TextStyle AirspaceLayer::style(ColorValue ink) const {
    return {.font = {.height = view().textPx * kTextShare},
            .color = ink,
            .alignX = AlignX::Center,
            .alignY = AlignY::Middle,
            .halo = color(ColorKey::GeoLand)};
}

void AirspaceLayer::layOut(const TextMeasure& texts, LabelRoom& room) {
    if (content().ground == nullptr || content().ground->airspaces() == nullptr ||
        !content().ground->parts().airspaceWords)
        return;
    const GroundGrid grid(view().projection, {0, 0}, 1);
    if (!grid.isFlat())
        return;
    forAirspaces(
        *content().ground->airspaces(), grid, grid.box(view().area.right(), view().area.bottom()),
        view().rangeNm, content().ground->altitudes(),
        [&](const Airspace& airspace, const AirspaceLook& look, std::span<const Point> outline) {
            if (labels_.size() >= kMostLabels)
                return;
            const auto edge = longestEdge(outline, view().area);
            if (!edge)
                return;
            std::string words = limitWords(airspace);
            if (view().rangeNm <= kNamesToNm)
                words = airspace.name + "  " + words;
            const Point middle{(edge->from.x + edge->to.x) / 2, (edge->from.y + edge->to.y) / 2};
            const TextStyle manner = style(color(look.color));
            const TextExtent extent = texts.measure(words, manner.font);
            const std::array places{Point{middle.x, middle.y - kOffEdgePx},
                                    Point{middle.x, middle.y + kOffEdgePx}, middle};
            std::array<Rect, 3> boxes{};
            std::ranges::transform(places, boxes.begin(),
                                   [&](Point place) { return textBox(place, extent, manner); });
            if (const auto found = claimFirst(room.taken, boxes, room.planLines))
                labels_.push_back({words, places.at(*found), color(look.color)});
        });
}

void AirspaceLayer::paint(Canvas& canvas) const {
    for (const Label& label : labels_)
        canvas.text(label.at, label.text, style(label.color));
}

}  // namespace korvel
