#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>

#include "nav/GeoPoint.h"
#include "platform/Clock.h"

namespace korvel {

/// Everything the pages show, taken from the document once per redraw. A value that is absent is
/// unknown or too old to be trusted and is shown as "---"; painters never look behind it.
struct CockpitData {
    std::optional<GeoPoint> position;  ///< live position: fresh, with a fix
    /// Where the aircraft was when the fix was last good; the map may stay there but says so.
    std::optional<GeoPoint> lastPosition;
    std::optional<int> positionAgeSec;  ///< age of lastPosition in whole seconds
    std::optional<double> groundSpeedKt;
    std::optional<double> trackMagDeg;   ///< 0 to 360, magnetic
    std::optional<double> trackTrueDeg;  ///< 0 to 360, true
    std::optional<int> altitudeFt;

    bool simulated = false;  ///< the position comes from the simulator
    /// Connection status for the pilot, lines separated by "\n"; empty while the receiver has a
    /// fix.
    std::string status;
    /// Bytes arrive from a receiver, with a fix or without. While none do, the status screen tells
    /// how to go on without one.
    bool receiverActive = false;
    /// A passing message ("Auto-zoom/view disabled for 30 secs."); empty for none.
    std::string message;

    /// What the pilot must know about the charts at all times ("CHARTS EXPIRED 2013-05-02"), shown
    /// at the map's edge; empty for nothing.
    std::string databaseNotice;

    int fixQuality = 0;
    bool fix3D = false;
    int satsInUse = 0;
    /// Satellites in view: bits 0-6 number, 7 used, 8-15 signal in dB, 16-24 azimuth, 25-31
    /// elevation (91: below the horizon); 0 is an empty slot.
    std::array<std::uint32_t, 12> satellites{};

    LocalTime now;
    int altUnit = 0;  ///< 0 feet, 1 metres; the unit of speed and distance is the one in force

    friend bool operator==(const CockpitData&, const CockpitData&) = default;
};

}  // namespace korvel
