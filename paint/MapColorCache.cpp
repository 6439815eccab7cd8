#include "paint/MapColorCache.h"

#include <algorithm>
#include <cstdlib>

#include "paint/BuiltInSchemes.h"
#include "paint/ColorScheme.h"

namespace korvel {
namespace {

constexpr int kBarelySeen = 40;  // of 255 in each of the three lights

bool isBarelySeen(ColorValue color, ColorValue ground) {
    const auto apart = [&](unsigned (*part)(ColorValue)) {
        return std::abs(static_cast<int>(part(color)) - static_cast<int>(part(ground)));
    };
    return std::max({apart(RedOf), apart(GreenOf), apart(BlueOf)}) < kBarelySeen;
}

}  // namespace

std::string_view colorKeyText(ColorKey key) {
    return kBuiltInColors[static_cast<std::size_t>(key)].key;
}

void MapColorCache::refresh(const ColorScheme& scheme) {
    for (std::size_t i = 0; i < colors_.size(); ++i)
        colors_[i] = scheme.Color(kBuiltInColors[i].key);
    chosen_ = isBarelySeen((*this)[ColorKey::NavBackground], (*this)[ColorKey::MapBackground])
                  ? ColorKey::MapInfoBackground
                  : ColorKey::NavBackground;
    airportPen_ = {.color = (*this)[ColorKey::MapAirport]};
    fixPen_ = {.color = (*this)[ColorKey::MapFix]};
    vorPen_ = {.color = (*this)[ColorKey::MapVor]};
    ndbPen_ = {.color = (*this)[ColorKey::MapNdb]};
}

}  // namespace korvel
