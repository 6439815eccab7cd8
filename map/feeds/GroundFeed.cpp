#include "map/feeds/GroundFeed.h"

#include "map/MapContent.h"

namespace korvel {

GroundFeed::GroundFeed(BaseMap* map, const AirspaceSet* airspaces)
    : picture_(map != nullptr ? std::make_unique<GroundPicture>(*map) : nullptr) {
    if (picture_)
        picture_->showAirspaces(airspaces);
}

bool GroundFeed::update(const FeedRequest& request) {
    const GroundParts parts = GroundParts::from(request.settings);
    if (!picture_ || picture_->parts() == parts)
        return false;
    picture_->showParts(parts);
    return true;
}

void GroundFeed::forget() {
    if (picture_)
        picture_->forget();
}

void GroundFeed::addTo(MapContent& content) const {
    if (picture_ && picture_->map().isOpen())
        content.ground = picture_.get();
}

}  // namespace korvel
