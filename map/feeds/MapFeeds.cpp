#include "map/feeds/MapFeeds.h"

#include <algorithm>

namespace korvel {

bool MapFeeds::update(const FeedRequest& request) {
    bool changed = false;
    for (ViewFeed* feed : all_)
        changed = feed->update(request) || changed;
    return changed;
}

bool MapFeeds::isComplete() const {
    return std::ranges::all_of(
        all_, [](const ViewFeed* feed) { return feed->isComplete(); });
}

bool MapFeeds::hasNews() const {
    return std::ranges::any_of(
        all_, [](const ViewFeed* feed) { return feed->hasNews(); });
}

void MapFeeds::forget() {
    for (ViewFeed* feed : all_)
        feed->forget();
}

void MapFeeds::addTo(MapContent& content) const {
    for (const ViewFeed* feed : all_)
        feed->addTo(content);
}

}  // namespace korvel
