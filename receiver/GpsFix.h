#pragma once

#include <array>
#include <cstdint>

#include "geo/GeoPoint.h"

namespace korvel {

inline constexpr std::size_t kSatelliteSlots = 12;

/// Satellites in view, a word each, 0 for an empty slot: bits 0-6 number (PRN), 7 used in the fix,
/// 8-15 signal-to-noise ratio in dB, 16-24 azimuth in degrees, 25-31 elevation in degrees (91 for
/// one below the horizon).
using SatelliteWords = std::array<std::uint32_t, kSatelliteSlots>;

/// Bits of GpsFix::sentenceFlags.
namespace SentenceFlag {
inline constexpr std::uint32_t kBytesArrive = 1;      ///< set by the connection monitor
inline constexpr std::uint32_t kChecksumCorrect = 2;  ///< a sentence with a correct one came
inline constexpr std::uint32_t kGga = 4;              ///< a well-formed GGA came
inline constexpr std::uint32_t kRmcOrVtg = 8;         ///< a well-formed RMC or VTG came
}  // namespace SentenceFlag

/// When a value was last stored, in milliseconds of the clock's ticks.
inline constexpr std::int64_t kNeverStored = -1;

/// What the receiver has told: the latest value of each kind. A copy of it belongs to whoever took
/// it; the original lives in GpsFixStore.
struct GpsFix {
    GeoPoint position;
    /// 1 when the last active RMC carried a position, 0 when it lacked one. While it is 1, GGA
    /// does not overwrite the position.
    std::int32_t rmcPositionValid = 0;
    /// Magnetic variation as RMC gave it, degrees: EAST NEGATIVE, west positive, the opposite of
    /// everything else in the program. kNoAngle when the receiver sends none.
    double magVariation = kNoAngle;
    double groundSpeedKt = 0;
    double trackMag = kNoAngle;  ///< over ground, magnetic, 0 to 360
    std::int32_t altitudeFt = 0;
    std::int64_t utcSeconds = 0;  ///< of RMC, since 1970, when its day can be true
    std::int32_t satsInUse = 0;
    std::int32_t fixQuality = 0;  ///< of the last GGA; 0 is no fix
    std::int32_t fix3D = 0;       ///< 1 when the last GSA said so
    std::uint32_t sentenceFlags = 0;
    SatelliteWords satellites{};

    // Age tells a live value from one that merely stands there.
    std::int64_t positionTickMs = kNeverStored;
    std::int64_t groundSpeedTickMs = kNeverStored;
    std::int64_t trackTickMs = kNeverStored;
    std::int64_t altitudeTickMs = kNeverStored;
    std::int64_t utcTickMs = kNeverStored;
    std::int64_t fixKindTickMs = kNeverStored;  ///< of fix3D
};

}  // namespace korvel
