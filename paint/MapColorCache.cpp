#include "paint/MapColorCache.h"

#include "paint/BuiltInSchemes.h"
#include "paint/ColorScheme.h"

namespace korvel {

std::string_view colorKeyText(ColorKey key) {
    return kBuiltInColors[static_cast<std::size_t>(key)].key;
}

void MapColorCache::refresh(const ColorScheme& scheme) {
    for (std::size_t i = 0; i < colors_.size(); ++i)
        colors_[i] = scheme.Color(kBuiltInColors[i].key);
    airportPen_ = {.color = (*this)[ColorKey::MapAirport]};
    fixPen_ = {.color = (*this)[ColorKey::MapFix]};
    vorPen_ = {.color = (*this)[ColorKey::MapVor]};
    ndbPen_ = {.color = (*this)[ColorKey::MapNdb]};
}

}  // namespace korvel
