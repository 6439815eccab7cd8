#pragma once

namespace korvel {

class ProfileFile;

/// Which airports the list of the nearest ones holds. Stored beside the list of settings, which is
/// complete.
struct NearestFilter {
    int fromRunwayFt = 0;   ///< the longest runway's length at least ("NearRunway"); 0 for any
    bool hardOnly = false;  ///< its surface must be hard ("NearHard")

    [[nodiscard]] bool isOn() const { return fromRunwayFt > 0 || hardOnly; }

    friend bool operator==(const NearestFilter&, const NearestFilter&) = default;
};

/// What the profile says. Saves nothing.
NearestFilter loadNearestFilter(ProfileFile& profile);

/// Reaches the file with the profile's next save.
void storeNearestFilter(ProfileFile& profile, const NearestFilter& filter);

}  // namespace korvel
