#pragma once

namespace korvel {

class ProfileFile;

/// What the pilot sees of other aircraft. Stored beside the list of settings, which is complete.
struct TrafficChoice {
    bool shown = true;    ///< on the map ("Traffic"); alarms come all the same
    int withinFt = 3500;  ///< above and below ("TrafficWithin"); 0 for whatever height

    friend bool operator==(const TrafficChoice&, const TrafficChoice&) = default;
};

/// What the profile says. Saves nothing.
TrafficChoice loadTrafficChoice(ProfileFile& profile);

/// Reaches the file with the profile's next save.
void storeTrafficChoice(ProfileFile& profile, const TrafficChoice& choice);

}  // namespace korvel
