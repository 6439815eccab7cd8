#include "map/layers/TownLayout.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "map/feeds/TownFeed.h"
#include "map/layers/Layer.h"
#include "paint/Clip.h"
#include "paint/TextBox.h"

namespace korvel {
namespace {

constexpr std::size_t kEnough = 6;  ///< of them in the view: less is lonely country
constexpr std::uint64_t kCity = 1000000;
constexpr double kSmallName = 0.8;  ///< of the map's other labels
constexpr double kCityName = 0.9;
constexpr double kSmallestNamePx = 11;
constexpr double kRadius = 0.16;  ///< of the type size
constexpr double kNameGap = 3;
constexpr double kRoomPx = 2;     ///< around a name
constexpr double kFainter = 0.2;  ///< than what a pilot flies by

struct Candidate {
    const Town* town = nullptr;
    Point at;
};

/// What lies in the view, and of that what is weighty enough where it lies.
std::vector<Candidate> candidates(const MapContent& content) {
    std::vector<Candidate> found;
    for (const Town& town : *content.towns)
        if (const Point at = content.view.projection.project(town.position);
            content.view.area.contains(at))
            found.push_back({&town, at});
    const std::uint64_t least = leastWeight(content.view.rangeNm);
    const auto weighty = std::ranges::count_if(
        found, [least](const Candidate& each) { return weightOf(*each.town) >= least; });
    if (static_cast<std::size_t>(weighty) >= kEnough)
        found.resize(static_cast<std::size_t>(weighty));  // they come first
    return found;
}

TextStyle styleOf(const MapContent& content, const Town& town) {
    const bool large = town.capital || town.population >= kCity;
    const ColorValue land = content.colors[ColorKey::GeoLand];
    return {
        .font = {.height = std::max(kSmallestNamePx, std::round(content.view.textPx *
                                                                (large ? kCityName : kSmallName)))},
        .color = blended(content.colors[ColorKey::GeoLabel], land, kFainter),
        .halo = land};
}

/// Names stand at the right, left, below, above, whichever is free first.
std::array<Point, 4> anchorsOf(const TownMark& mark, const TextExtent& extent) {
    const double middle = mark.at.y + extent.capHeight / 2;
    const double away = mark.radius + kNameGap;
    const double centered = mark.at.x - extent.width / 2;
    return {{{mark.at.x + away, middle},
             {mark.at.x - away - extent.width, middle},
             {centered, mark.at.y + away + extent.capHeight},
             {centered, mark.at.y - away}}};
}

}  // namespace

std::vector<TownMark> layOutTowns(const MapContent& content, const TextMeasure& texts,
                                  LabelRoom& room) {
    std::vector<TownMark> marks;
    if (content.towns == nullptr)
        return marks;
    for (const auto& [town, at] : candidates(content)) {
        if (marks.size() == kMostTowns)
            break;
        TownMark mark{.at = at,
                      .radius = std::max(2.0, content.view.textPx * kRadius),
                      .capital = town->capital,
                      .anchor = {},
                      .name = town->name,
                      .style = styleOf(content, *town)};
        const Rect symbol{at.x - mark.radius, at.y - mark.radius, 2 * mark.radius, 2 * mark.radius};
        if (room.taken.isTaken(symbol))
            continue;
        const TextExtent extent = texts.measure(mark.name, mark.style.font);
        const std::array<Point, 4> anchors = anchorsOf(mark, extent);
        std::array<Rect, 4> boxes{};
        std::ranges::transform(anchors, boxes.begin(), [&](Point anchor) {
            return grown(textBox(anchor, extent, mark.style), kRoomPx);
        });
        const auto place = claimFirst(room.taken, boxes, room.planLines);
        if (!place)
            continue;
        room.taken.reserve(symbol);
        mark.anchor = anchors.at(*place);
        marks.push_back(std::move(mark));
    }
    return marks;
}

void paintTowns(Canvas& canvas, const MapContent& content, const std::vector<TownMark>& towns) {
    const Brush fill{content.colors[ColorKey::GeoPopulated]};
    const Pen rim{.color = content.colors[ColorKey::GeoLabel], .width = 1};
    for (const TownMark& town : towns) {
        if (town.capital) {
            const double side = 2 * town.radius;
            canvas.rect({town.at.x - town.radius, town.at.y - town.radius, side, side}, fill, rim);
        } else {
            canvas.circle(town.at, town.radius, fill, rim);
        }
        canvas.text(town.anchor, town.name, town.style);
    }
}

}  // namespace korvel
