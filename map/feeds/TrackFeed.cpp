#include "map/feeds/TrackFeed.h"

#include "cockpit/CockpitData.h"
#include "map/MapPainter.h"

namespace korvel {

bool TrackFeed::update(const FeedRequest& request) { return levels_.update(request.data.track); }

void TrackFeed::addTo(MapScene& scene) const { scene.track = &levels_; }

}  // namespace korvel
