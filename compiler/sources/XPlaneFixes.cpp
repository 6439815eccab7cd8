#include <string_view>
#include <utility>

#include "base/AsciiText.h"
#include "compiler/sources/XPlaneImport.h"

namespace korvel {

namespace {

/// The waypoint type packs three characters of the ARINC 424 waypoint type into a number, lowest
/// byte first; the first one is 'V' for a visual reporting point.
bool isVisual(std::string_view type) {
    const auto packed = wholeInt(type);
    return packed && (*packed & 0xFF) == 'V';
}

}  // namespace

std::string importXPlaneFixes(XPlaneFile& file, ImportContext& /*context*/, AviationData& data) {
    if (auto refused = file.readHeader(600, 1299); !refused.empty())
        return refused;
    // Columns: latitude, longitude, identifier; from 1100 on also "ENRT" or the airport whose
    // procedures use the fix, and the region; then the type; from 1200 on the spelled-out name,
    // which a database does not hold.
    Fields fields;
    while (file.next(fields)) {
        const auto lat = latitudeDeg(fields[0]);
        const auto lon = longitudeDeg(fields[1]);
        if (!lat || !lon) {
            file.malformed("latitude or longitude missing or out of range");
            continue;
        }
        if (!isIdentifier(fields[2])) {
            file.malformed("identifier missing or not usable");
            continue;
        }
        SourceFix fix;
        fix.ident = fields[2];
        fix.position = {*lat, *lon};
        fix.region = fields[4];
        if (isVisual(fields[5]))
            fix.usage = kUsageVisual;
        else if (fields.size() > 3 && fields[3] != "ENRT")
            fix.usage = kUsageTerminal;
        data.fixes.push_back(std::move(fix));
    }
    return file.failure();
}

}  // namespace korvel
