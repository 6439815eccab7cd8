#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "cockpit/GroundData.h"
#include "map/profile/ProfileContent.h"

namespace korvel {

struct CockpitData;
struct Settings;

/// How much of the way a profile shows that goes with a map of this range: enough for a descent
/// from the usual altitudes at the near ranges, and no more than the tiles of some hours of flight.
double profileLengthNm(int rangeNm);

/// Cuts the profile of what lies along the way, anew with each position; the tiles of heights are
/// read elsewhere and come when they are there. User-interface thread only.
class ProfileFeed {
 public:
    explicit ProfileFeed(const GroundSources& sources) : sources_(sources) {}

    struct Request {
        const CockpitData& data;
        const Settings& settings;
        /// Of the way; all of it for none.
        std::optional<double> lengthNm;
        double widthPx = 0;  ///< the ground is asked for at every third pixel
    };
    /// Brings the content up to date.
    void update(const Request& request);
    /// The profile is not shown: its tiles are wanted no longer.
    void rest();

    /// Whether something has come since the last update.
    [[nodiscard]] bool hasNews() const;
    [[nodiscard]] const ProfileContent& content() const { return content_; }

 private:
    /// What the ground was cut for.
    struct Cut {
        ProfileRoute route;
        double lengthNm = 0;
        std::size_t steps = 0;
        std::uint64_t terrain = 0;  ///< revisions
        std::uint64_t airspaces = 0;
        bool showsAirspaces = true;

        friend bool operator==(const Cut&, const Cut&) = default;
    };

    void cut();
    void addFlight(const CockpitData& data);
    [[nodiscard]] std::uint64_t terrainRevision() const;
    [[nodiscard]] std::uint64_t airspaceRevision() const;

    GroundSources sources_;
    std::optional<Cut> cut_;  ///< none while resting
    ProfileContent content_;
};

}  // namespace korvel
