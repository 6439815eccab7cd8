#include "pages/AirportText.h"

#include "base/TextNumbers.h"
#include "config/Text.h"
#include "config/texts/StatusTexts.h"

namespace korvel {

std::string runwayText(const RunwayRecord& runway) {
    std::string line;
    for (const RunwayEnd& end : runway.ends)
        line.append(line.empty() ? "" : "/").append(end.id);
    if (runway.lengthFt) {
        line += "   " + formatInt(*runway.lengthFt);
        if (runway.widthFt)
            line += " x " + formatInt(*runway.widthFt);
        line += " ft";
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
