#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "compiler/sources/GeoDegrees.h"

namespace korvel {

/// What an airway point is in the formats that say so.
enum class AirwayPointType : std::uint8_t { Unknown, Fix, Ndb, Vhf };

struct AirwayPoint {
    std::string ident;
    /// ICAO region, empty in the formats that give coordinates instead.
    std::string region;
    AirwayPointType type = AirwayPointType::Unknown;
    std::optional<GeoDegrees> position;
    bool onLow = false;
    bool onHigh = false;
};

/// The segments of all airways, by airway name, over a shared set of points.
class AirwayNetwork {
 public:
    using PointIndex = std::uint32_t;
    struct Segment {
        PointIndex a;
        PointIndex b;
    };

    /// The point of that name at that position, added when there is none nearby.
    PointIndex pointAt(std::string_view ident, const GeoDegrees& position);
    /// The point of that name, type and region, added without a position when there is none.
    PointIndex pointIn(std::string_view ident, std::string_view region, AirwayPointType type);

    void addSegment(std::string_view airway, PointIndex a, PointIndex b);
    void markUse(PointIndex point, bool high);

    [[nodiscard]] std::span<AirwayPoint> points() { return points_; }
    [[nodiscard]] std::span<const AirwayPoint> points() const { return points_; }
    /// By airway name in byte order, segments in the order in which they were added.
    [[nodiscard]] const std::map<std::string, std::vector<Segment>, std::less<>>& airways() const {
        return airways_;
    }

 private:
    PointIndex add(AirwayPoint point);

    std::vector<AirwayPoint> points_;
    std::unordered_map<std::string, std::vector<PointIndex>> byIdent_;
    std::map<std::string, std::vector<Segment>, std::less<>> airways_;
};

}  // namespace korvel
