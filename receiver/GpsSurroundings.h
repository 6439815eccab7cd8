#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "geo/GeoPoint.h"

namespace korvel {

/// What the sentence receiver and decoder need of the rest of the program. The document implements
/// it; the defaults are those of a receiver without a port, as when a log is read from a file.
class GpsSurroundings {
 public:
    GpsSurroundings() = default;
    GpsSurroundings(const GpsSurroundings&) = delete;
    GpsSurroundings& operator=(const GpsSurroundings&) = delete;
    virtual ~GpsSurroundings() = default;

    virtual bool simulatorActive() const { return false; }
    virtual std::int32_t simulatedAltitudeFt() const { return 0; }
    /// Position input comes from the attitude module.
    virtual bool positionFromAttitudeModule() const { return false; }

    virtual bool ignoreReceiverVariation() const { return false; }
    /// For the present position, degrees, east positive; kNoAngle when unknown.
    virtual double databaseVariationDeg() const { return kNoAngle; }

    /// The GPS port's settings text, empty while there is none.
    virtual std::string portSettings() const { return {}; }
    /// Port thread and main thread.
    virtual void writeToPort(std::string_view /*bytes*/) {}

    /// A sentence of the attitude module. Port thread; nothing happens unless the plug-in is
    /// loaded and its page is shown.
    virtual void passToAttitudePlugin(std::string_view /*sentence*/) {}
};

}  // namespace korvel
