#include "cockpit/AltimeterForm.h"

#include <cmath>
#include <cstdlib>

#include "base/TextNumbers.h"
#include "config/Text.h"
#include "config/texts/FlightTexts.h"
#include "config/texts/SheetTexts.h"
#include "geo/Geodesy.h"
#include "geo/Units.h"

namespace korvel {
namespace {

constexpr int kLowest = -2000;
constexpr int kHighest = 60000;
constexpr int kMetres = 1;

}  // namespace

std::string AltimeterForm::shown(std::int32_t feet) const {
    return altUnit == kMetres ? formatInt(RoundToInt(feet * kMetresPerFoot)) : formatInt(feet);
}

std::string AltimeterForm::proposed() const {
    return receiverFt ? shown(*receiverFt + offsetFt.value_or(0)) : std::string();
}

std::string AltimeterForm::words() const {
    if (!receiverFt)
        return std::string(text(kSheetTexts.altimeterNoAltitude));
    const std::string_view unit = altUnit == kMetres ? "m" : "ft";
    const std::string receiver = shown(*receiverFt);
    std::string words =
        formatText(kSheetTexts.altimeterReceiver, {std::string_view(receiver), unit});
    if (offsetFt) {
        const std::string offset = (*offsetFt > 0 ? "+" : "") + shown(*offsetFt);
        words += "\n" + formatText(kSheetTexts.altimeterOffset, {std::string_view(offset), unit});
    }
    return words;
}

std::string AltimeterForm::read(std::string_view typed, std::int32_t& offset) const {
    if (!receiverFt)
        return std::string(text(kSheetTexts.altimeterNoAltitude));
    const auto reading = scanInt(typed);
    const bool isAll = typed.find_first_not_of(' ') == std::string_view::npos;
    if (!reading || !isAll || *reading < kLowest || *reading > kHighest)
        return formatText(kFlightTexts.numberOutOfRange,
                          {text(kSheetTexts.altimeterTitle), kLowest, kHighest});
    const std::int32_t feet = altUnit == kMetres ? RoundToInt(*reading / kMetresPerFoot) : *reading;
    if (std::abs(feet - *receiverFt) > kMostOffsetFt)
        return formatText(kSheetTexts.altimeterTooFar, {kMostOffsetFt});
    offset = feet - *receiverFt;
    return {};
}

}  // namespace korvel
