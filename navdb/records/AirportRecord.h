#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "navdb/records/DatabaseRecord.h"

namespace korvel {

struct RunwayEnd {
    std::string id;  ///< "09L"
    std::optional<int> magHeadingDeg{};
    GeoPoint position{};  ///< not valid when unknown
    std::optional<int> elevationFt{};
    char pattern = 0;  ///< 'L' or 'R': the side of the traffic pattern; 0 when unknown
};

struct RunwayRecord {
    std::optional<int> lengthFt{};
    std::optional<int> widthFt{};
    std::string surface{};
    std::string info{};
    std::vector<RunwayEnd> ends;  ///< the low end, then the high one; a helipad has one
};

struct CommFreqRecord {
    std::string type;  ///< "TWR", "ATIS", …
    double freqMhz = 0.0;
};

/// Stands for an elevation that is not known.
inline constexpr std::int32_t kNoElevationFt = INT32_MIN;

class AirportRecord final : public DatabaseRecord {
 public:
    [[nodiscard]] std::unique_ptr<DatabaseRecord> Clone() const override {
        return std::make_unique<AirportRecord>(*this);
    }
    [[nodiscard]] KindMask GetKind() const override { return kAirportKind; }
    /// What the flags say, in words separated by commas ("Heliport, private"); empty without any.
    [[nodiscard]] std::string GetInfoText() const override;
    void SetName(std::string_view name) override { name_.assign(name); }
    [[nodiscard]] std::string_view GetName() const override { return name_.view(); }

    float magVariationDeg = static_cast<float>(kNoAngle);  ///< east positive, kNoAngle if unknown
    std::int32_t elevationFt = kNoElevationFt;
    char region = 0;          ///< ICAO region letter of the file, 0 for none
    std::uint32_t flags = 0;  ///< AirportFlag
    std::string arptId;       ///< unique in its file; leads to its runways and frequencies
    std::string info;
    /// Empty in records from a database file until NavDatabase::loadDetails() fills them.
    std::vector<RunwayRecord> runways;
    std::vector<CommFreqRecord> comms;

 private:
    PlaceName name_;
};

/// Feet above the sea; nothing for what is no airport, and where it is not known.
std::optional<std::int32_t> elevationOf(const DatabaseRecord& record);

}  // namespace korvel
