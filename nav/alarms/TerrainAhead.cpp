#include "nav/alarms/TerrainAhead.h"

#include <algorithm>
#include <cmath>
#include <string>

#include "config/Text.h"
#include "config/texts/FlightTexts.h"
#include "geo/Geodesy.h"

namespace korvel {
namespace {

constexpr double kSecondsPerHour = 3600;
constexpr double kMinuteSec = 60;
constexpr double kHalfMinuteSec = 30;
constexpr double kLeastNm = 1;
constexpr double kStepNm = 0.1;
constexpr double kCorridorNm = 0.1;      ///< to each side at the aircraft
constexpr double kCorridorShare = 0.05;  ///< and so much more of the distance
constexpr double kClimbShare = 0.5;
constexpr double kMostTurnDeg = 180;  ///< nobody knows what comes behind
constexpr double kRunwayNm = 2;
constexpr double kDestinationNm = 5;
constexpr double kDestinationFt = 1500;
constexpr std::int64_t kTerrainDelayMs = 2000;

void keepLeast(std::optional<double>& least, double feet) {
    least = std::min(least.value_or(feet), feet);
}

std::optional<std::string> wordsBelow(const std::optional<double>& feet, bool holds, Text words) {
    if (!feet || *feet >= (holds ? kTerrainEndsFt : kTerrainBeginsFt))
        return std::nullopt;
    return std::string(text(words));
}

}  // namespace

TerrainClearance clearanceAhead(const FlightPath& path, const HighestGround& highest) {
    TerrainClearance clearance;
    const double nmPerSecond = std::max(path.groundSpeedKt, kTerrainFromKt) / kSecondsPerHour;
    const double farNm = std::max(kMinuteSec * nmPerSecond, kLeastNm);
    const double nearNm = std::max(kHalfMinuteSec * nmPerSecond, kLeastNm);
    const double climb = path.verticalSpeedFpm * (path.verticalSpeedFpm > 0 ? kClimbShare : 1);
    GeoPoint point = path.position;
    // A whole number of steps, so that the far end is looked at.
    const int steps = static_cast<int>(std::ceil(farNm / kStepNm));
    for (int i = 0; i <= steps; ++i) {
        const double distance = farNm * i / steps;
        const double seconds = distance / nmPerSecond;
        if (const auto ground = highest(point, kCorridorNm + kCorridorShare * distance)) {
            const double above = path.altitudeFt + climb * seconds / kMinuteSec - *ground;
            keepLeast(clearance.withinMinuteFt, above);
            if (distance <= nearNm)
                keepLeast(clearance.withinHalfMinuteFt, above);
        }
        const double turned =
            std::clamp(path.turnRateDegPerSec * seconds, -kMostTurnDeg, kMostTurnDeg);
        const GeoPoint from = point;
        PointAtRadialDistance(from.lat, from.lon, farNm / steps / kNmPerRadian,
                              (path.trackTrueDeg + turned) * kDegToRad, point.lat, point.lon);
    }
    return clearance;
}

bool isLanding(const LandingNear& near) {
    const bool atRunway = near.runwayNm && *near.runwayNm <= kRunwayNm;
    const bool atDestination = near.destinationNm && *near.destinationNm <= kDestinationNm &&
                               near.aboveDestinationFt && *near.aboveDestinationFt < kDestinationFt;
    return atRunway || atDestination;
}

void addTerrainAlarms(AlarmBoard& board, const TerrainClearance& clearance) {
    board.add({.urgency = AlarmUrgency::Warning,
               .delayMs = kTerrainDelayMs,
               .condition =
                   [&clearance](bool holds) {
                       return wordsBelow(clearance.withinHalfMinuteFt, holds,
                                         kFlightTexts.alarmTerrain);
                   }});
    board.add({.urgency = AlarmUrgency::Caution,
               .delayMs = kTerrainDelayMs,
               .condition = [&clearance](bool holds) {
                   return wordsBelow(clearance.withinMinuteFt, holds,
                                     kFlightTexts.alarmTerrainAhead);
               }});
}

}  // namespace korvel
