#pragma once

#include <optional>
#include <vector>

#include "exchange/ForeignPlan.h"
#include "nav/track/Track.h"
#include "platform/Clock.h"

namespace korvel {

// Tracks are local times here and UTC everywhere else; the clock tells the zone's rules of each
// date.

std::vector<std::optional<ForeignTrackPoint>> foreignTrack(const Track::Recording& recording,
                                                           const Clock& clock);

/// The local time of a moment, as localSeconds().
std::int64_t localSecondsAt(std::int64_t unixS, const Clock& clock);

/// Points without a time follow each other by a second; they are not told apart from others.
TrackLines trackLinesOf(const ForeignTrack& track, const Clock& clock);

}  // namespace korvel
