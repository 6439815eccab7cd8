#pragma once

// Which towns are named in one frame, as numbers, and how they look.

#include <string>
#include <vector>

#include "paint/Canvas.h"

namespace korvel {

struct LabelRoom;
struct MapContent;

/// A town with its name, whose room was claimed.
struct TownMark {
    Point at;
    double radius = 0;     ///< of its symbol, pixels
    bool capital = false;  ///< of a country
    Point anchor;
    std::string name;
    TextStyle style;
};

/// At most so many are named at once.
inline constexpr std::size_t kMostTowns = 40;

/// Claims room for the towns of the content, the weightiest first: one that has none for symbol
/// and name is left out altogether.
std::vector<TownMark> layOutTowns(const MapContent& content, const TextMeasure& texts,
                                  LabelRoom& room);

void paintTowns(Canvas& canvas, const MapContent& content, const std::vector<TownMark>& towns);

}  // namespace korvel
