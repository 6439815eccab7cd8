#include "screen/AttitudePicture.h"

#include <algorithm>

#include "cockpit/AttitudeModule.h"
#include "config/texts/StatusTexts.h"
#include "paint/Color.h"
#include "paint/MapColorCache.h"
#include "platform/Folders.h"
#include "platform/PathText.h"

namespace korvel {
namespace {

constexpr std::uint32_t kOpaque = 0xFF000000U;

std::uint32_t pixelOf(ColorValue color) {
    return kOpaque | RedOf(color) << 16U | GreenOf(color) << 8U | BlueOf(color);
}

}  // namespace

AttitudeView AttitudePicture::draw(AttitudeModule& module, int width, int height,
                                   const MapColorCache& colors, std::int64_t nowMs) {
    if (!module.isLoaded() || width <= 0 || height <= 0) {
        const std::string folder = textOf(pluginFolder());
        notice_ = module.error().empty()
                      ? formatText(kStatusTexts.noAttitudePlugin, {std::string_view(folder)})
                      : module.error();
        return {.picture = {}, .alive = false, .notice = notice_};
    }
    pixels_.resize(static_cast<std::size_t>(width) * static_cast<std::size_t>(height));
    const bool alive = module.draw(
        {.size = 0,
         .width = width,
         .height = height,
         .background = pixelOf(colors[ColorKey::MapBackground]),
         .ink = pixelOf(colors[ColorKey::HsiNumeral]),
         .sky = pixelOf(colors[ColorKey::GeoWater]),
         .ground = pixelOf(blended(colors[ColorKey::GeoLandMax], colors[ColorKey::GeoLand], 0.5)),
         .pixels = pixels_.data()},
        nowMs);
    // The canvas takes it for premultiplied: what a plug-in leaves translucent would shine through.
    std::ranges::for_each(pixels_, [](std::uint32_t& pixel) { pixel |= kOpaque; });
    return {.picture = {.width = width, .height = height, .pixels = pixels_},
            .alive = alive,
            .notice = {}};
}

}  // namespace korvel
