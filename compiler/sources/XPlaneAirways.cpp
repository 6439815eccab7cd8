#include <algorithm>
#include <optional>
#include <string_view>

#include "base/Ascii.h"
#include "base/AsciiText.h"
#include "compiler/sources/XPlaneImport.h"

namespace korvel {

namespace {

constexpr int kFirstWithRegions = 1100;

struct SegmentLine {
    AirwayNetwork::PointIndex a = 0;
    AirwayNetwork::PointIndex b = 0;
    /// 1 low, 2 high.
    int level = 0;
    std::string_view names;
};

/// Three words from `first` on: identifier, latitude, longitude.
std::optional<AirwayNetwork::PointIndex> pointWithPosition(const Fields& fields, std::size_t first,
                                                           AirwayNetwork& network) {
    const auto lat = latitudeDeg(fields[first + 1]);
    const auto lon = longitudeDeg(fields[first + 2]);
    if (!lat || !lon || !isIdentifier(fields[first]))
        return std::nullopt;
    return network.pointAt(fields[first], {*lat, *lon});
}

/// Three words from `first` on: identifier, region, type (11 fix, 2 NDB, 3 VHF station).
std::optional<AirwayNetwork::PointIndex> pointWithRegion(const Fields& fields, std::size_t first,
                                                         AirwayNetwork& network) {
    const auto code = wholeInt(fields[first + 2]);
    const auto type = code == 11  ? AirwayPointType::Fix
                      : code == 2 ? AirwayPointType::Ndb
                      : code == 3 ? AirwayPointType::Vhf
                                  : AirwayPointType::Unknown;
    if (type == AirwayPointType::Unknown || !isIdentifier(fields[first]))
        return std::nullopt;
    return network.pointIn(fields[first], fields[first + 1], type);
}

/// Columns: two points, from 1100 on the direction (N both ways, F forward, B backward), the
/// level, the lowest and highest flight level, and the names of all airways along the segment.
std::optional<SegmentLine> readSegment(const Fields& fields, int version, AirwayNetwork& network) {
    const bool withRegions = version >= kFirstWithRegions;
    const auto pointOf = withRegions ? pointWithRegion : pointWithPosition;
    const std::size_t levelColumn = withRegions ? 7 : 6;
    const auto level = wholeInt(fields[levelColumn]);
    const auto names = fields.from(levelColumn + 3);
    if (!level || *level < 1 || *level > 2 || names.empty())
        return std::nullopt;
    const auto a = pointOf(fields, 0, network);
    const auto b = a ? pointOf(fields, 3, network) : std::nullopt;
    if (!b)
        return std::nullopt;
    return SegmentLine{*a, *b, *level, names};
}

}  // namespace

std::string importXPlaneAirways(XPlaneFile& file, ImportContext& context, AviationData& data) {
    if (auto refused = file.readHeader(640, 1299); !refused.empty())
        return refused;
    Fields fields;
    while (file.next(fields)) {
        const auto segment = readSegment(fields, file.version(), data.airways);
        if (!segment) {
            file.malformed("not two points, a level of 1 or 2 and a name");
            continue;
        }
        data.airways.markUse(segment->a, segment->level == 2);
        data.airways.markUse(segment->b, segment->level == 2);
        context.log.took("airway segments");
        // A name may itself hold a space, but never a hyphen.
        std::string_view names = segment->names;
        while (!names.empty()) {
            const auto hyphen = std::min(names.find('-'), names.size());
            if (const auto name = trimmed(names.substr(0, hyphen)); !name.empty())
                data.airways.addSegment(name, segment->a, segment->b);
            names.remove_prefix(std::min(hyphen + 1, names.size()));
        }
    }
    return file.failure();
}

}  // namespace korvel
