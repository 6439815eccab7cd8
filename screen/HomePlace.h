#pragma once

#include <optional>

#include "geo/GeoPoint.h"

namespace korvel {

class ProfileFile;
struct CockpitData;

/// Where the aircraft was when its receiver last told: there the map opens the next time. To a
/// tenth of a degree, so that the profile is written every few miles and not with every fix.
class HomePlace {
 public:
    /// From the profile; it reaches the file with the next save.
    void load(ProfileFile& profile);
    void save(ProfileFile& profile) const;

    /// Takes over a new situation; the simulator, a demonstration and a replay are nowhere.
    void update(const CockpitData& data);

    [[nodiscard]] std::optional<GeoPoint> place() const { return place_; }

 private:
    std::optional<GeoPoint> place_;
};

}  // namespace korvel
