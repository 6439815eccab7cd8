#pragma once

#include <optional>

#include "geo/GeoPoint.h"
#include "nav/alarms/TerrainAhead.h"

namespace korvel {

class AlarmBoard;
class DatabaseRecord;
class NavDatabase;
class TerrainStore;

/// Watches the ground ahead of the aircraft: has its tiles loaded, and tells the alarms how high
/// above it the path leads. Main thread only.
class TerrainWatch {
 public:
    /// All must outlive it; its alarms join the board's.
    TerrainWatch(TerrainStore& terrain, const NavDatabase& database, AlarmBoard& board);
    TerrainWatch(const TerrainWatch&) = delete;
    TerrainWatch& operator=(const TerrainWatch&) = delete;
    ~TerrainWatch() = default;

    /// What is absent is unknown.
    struct Situation {
        std::optional<GeoPoint> position{};
        std::optional<double> trackTrueDeg{};
        std::optional<double> groundSpeedKt{};
        std::optional<double> altitudeFt{};  ///< above sea, by the receiver
        std::optional<double> verticalSpeedFpm{};
        std::optional<double> turnRateDegPerSec{};
        const DatabaseRecord* destination = nullptr;  ///< null for none
    };
    /// Once per tick, before the alarms are judged.
    void update(const Situation& now);

    [[nodiscard]] const TerrainClearance& clearance() const { return clearance_; }

 private:
    [[nodiscard]] LandingNear landingNear(const Situation& now) const;
    [[nodiscard]] std::optional<double> nearestRunwayNm(GeoPoint position) const;

    TerrainStore& terrain_;
    const NavDatabase& database_;
    TerrainClearance clearance_;
};

}  // namespace korvel
