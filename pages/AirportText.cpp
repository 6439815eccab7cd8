#include "pages/AirportText.h"

#include "base/TextNumbers.h"
#include "config/Text.h"
#include "config/texts/StatusTexts.h"
#include "geo/Geodesy.h"
#include "geo/Units.h"

namespace korvel {

std::string runwayText(const RunwayRecord& runway, int altUnit) {
    const bool isMetric = altUnit == 1;
    const auto shown = [isMetric](int feet) {
        return formatInt(isMetric ? RoundToInt(feet * kMetresPerFoot) : feet);
    };
    std::string line;
    for (const RunwayEnd& end : runway.ends)
        line.append(line.empty() ? "" : "/").append(end.id);
    if (runway.lengthFt) {
        line += "   " + shown(*runway.lengthFt);
        if (runway.widthFt)
            line += " x " + shown(*runway.widthFt);
        line += isMetric ? " m" : " ft";
    }
    if (!runway.surface.empty())
        line += "   " + runway.surface;
    for (const RunwayEnd& end : runway.ends)
        if (end.pattern == 'R')
            line += "   " + formatText(kStatusTexts.rightPattern, {std::string_view(end.id)});
    return line;
}

std::string commText(const CommFreqRecord& comm) {
    constexpr int kMhzDecimals = 3;
    return comm.type + "   " + formatFixed(comm.freqMhz, kMhzDecimals);
}

}  // namespace korvel
