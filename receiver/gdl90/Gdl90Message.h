#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <variant>

#include "geo/GeoPoint.h"
#include "receiver/gdl90/Gdl90Frames.h"

namespace korvel {

// What the messages say. What one says it does not know is absent.

struct Gdl90Heartbeat {
    bool gpsValid = false;
    bool maintenance = false;
    bool utcOk = false;
    int timeS = 0;  ///< since midnight UTC
};

/// The own aircraft or another one.
struct Gdl90Target {
    bool isOwn = false;
    int alert = 0;
    int addressType = 0;
    std::uint32_t address = 0;  ///< 24 bits
    std::optional<GeoPoint> position{};
    std::optional<int> pressureAltitudeFt{};  ///< above the standard pressure, never a GPS altitude
    bool airborne = false;
    bool extrapolated = false;
    // At most one of the three.
    std::optional<double> trackDeg{};
    std::optional<double> headingMagneticDeg{};
    std::optional<double> headingTrueDeg{};
    std::optional<int> groundSpeedKt{};
    std::optional<int> verticalSpeedFpm{};
    int nic = 0;
    int nacp = 0;
    int emitterCategory = 0;
    std::string callSign{};  ///< without what it is padded with
    int emergency = 0;
};

struct Gdl90GeometricAltitude {
    int altitudeFt = 0;  ///< above the ellipsoid, unless the device says otherwise
    bool verticalWarning = false;
    std::optional<int> vfomM;
};

struct Gdl90DeviceId {
    std::optional<std::uint64_t> serial;
    std::string name;
    std::string longName;
    bool geometricAltitudeIsMsl = false;
};

struct Gdl90Attitude {
    std::optional<double> rollDeg;   ///< to the right positive
    std::optional<double> pitchDeg;  ///< up positive
    std::optional<double> headingDeg;
    bool headingIsMagnetic = false;
    std::optional<int> indicatedAirspeedKt;
    std::optional<int> trueAirspeedKt;
};

struct Gdl90Other {
    int id = 0;
    std::size_t bytes = 0;  ///< its length, the number included
};

using Gdl90Message = std::variant<Gdl90Heartbeat, Gdl90Target, Gdl90GeometricAltitude,
                                  Gdl90DeviceId, Gdl90Attitude, Gdl90Other>;

/// Six hexadecimal digits.
std::string addressText(std::uint32_t address);

/// Nothing for a message that is too short for its number or says what cannot be. Longer ones are
/// read as far as they are known.
std::optional<Gdl90Message> decodeGdl90(Gdl90Bytes message);

}  // namespace korvel
