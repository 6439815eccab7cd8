#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "compiler/AirwayNetwork.h"
#include "compiler/sources/AiracCycle.h"
#include "compiler/sources/GeoDegrees.h"
#include "navdb/records/DatabaseRecord.h"

namespace korvel {

struct SourceRunwayEnd {
    std::string id;
    std::optional<GeoDegrees> position;
    /// Degrees true; from the source where it gives no coordinates.
    std::optional<double> headingTrue;
    std::optional<int> elevationFt;
};

struct SourceRunway {
    std::optional<int> lengthFt;
    std::optional<int> widthFt;
    std::string surface;
    bool hard = false;
    bool lighted = false;
    std::string info;
    /// Low end first; a helipad has the first one only, the other one has no id.
    std::array<SourceRunwayEnd, 2> ends;
};

struct SourceComm {
    std::string type;
    double freqMhz = 0.0;
};

enum class AirportKind : std::uint8_t { Land, Seaplane, Heliport };

struct SourceAirport {
    std::string ident;
    std::string name;
    std::string info;
    std::vector<std::string> towns;  ///< by which it is looked for, besides its name
    AirportKind kind = AirportKind::Land;
    bool isPrivate = false;
    bool hasBeacon = false;
    GeoDegrees position;
    std::optional<int> elevationFt;
    /// Degrees, east positive.
    std::optional<double> variation;
    std::vector<SourceRunway> runways;
    std::vector<SourceComm> comms;
};

enum class NavaidKind : std::uint8_t { Vor, VorDme, Vortac, Ndb, NdbDme, DmeOnly };

struct SourceNavaid {
    NavaidKind kind = NavaidKind::Vor;
    std::string ident;
    std::string name;
    /// ICAO region of the newer formats ("K1"), empty in the older ones.
    std::string region;
    GeoDegrees position;
    /// MHz for the VOR family and DME, kHz for the NDB family.
    double frequency = 0.0;
    Usage usage = kUsageLow;
    /// Degrees, east positive: what the station's north is aligned to.
    std::optional<double> variation;
};

struct SourceFix {
    std::string ident;
    std::string region;
    GeoDegrees position;
    /// Unknown until the airways have been looked at.
    std::optional<Usage> usage;
};

/// Everything the sources hold, before it is laid out as tables.
struct AviationData {
    std::vector<SourceAirport> airports;
    std::vector<SourceNavaid> navaids;
    std::vector<SourceFix> fixes;
    AirwayNetwork airways;
    /// The earliest of the data cycles that the sources name.
    std::optional<AiracCycle> cycle;
};

}  // namespace korvel
