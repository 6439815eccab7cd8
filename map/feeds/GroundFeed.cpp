#include "map/feeds/GroundFeed.h"

#include "map/MapContent.h"

namespace korvel {

GroundFeed::GroundFeed(BaseMap* map)
    : picture_(map != nullptr ? std::make_unique<GroundPicture>(*map) : nullptr) {}

void GroundFeed::forget() {
    if (picture_)
        picture_->forget();
}

void GroundFeed::addTo(MapContent& content) const {
    if (picture_ && picture_->map().isOpen())
        content.ground = picture_.get();
}

}  // namespace korvel
