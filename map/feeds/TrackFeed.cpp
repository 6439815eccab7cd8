#include "map/feeds/TrackFeed.h"

#include "cockpit/CockpitData.h"
#include "map/MapContent.h"

namespace korvel {

bool TrackFeed::update(const FeedRequest& request) { return levels_.update(request.data.track); }

void TrackFeed::addTo(MapContent& content) const { content.track = &levels_; }

}  // namespace korvel
