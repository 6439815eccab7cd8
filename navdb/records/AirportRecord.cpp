#include "navdb/records/AirportRecord.h"

#include <array>
#include <utility>

#include "base/Ascii.h"
#include "config/texts/DatabaseTexts.h"
#include "navdb/file/DatabaseTables.h"

namespace korvel {

std::string AirportRecord::GetInfoText() const {
    static constexpr std::array<std::pair<AirportFlag, Text>, 7> kWords{{
        {kAirportSeaplaneBase, kDatabaseTexts.seaplaneBase},
        {kAirportHeliport, kDatabaseTexts.heliport},
        {kAirportPrivate, kDatabaseTexts.privateAirport},
        {kAirportTower, kDatabaseTexts.tower},
        {kAirportHardSurface, kDatabaseTexts.hardSurface},
        {kAirportLighted, kDatabaseTexts.lighted},
        {kAirportBeacon, kDatabaseTexts.beacon},
    }};
    std::string words;
    for (const auto& [flag, word] : kWords) {
        if ((flags & flag) != 0) {
            words += words.empty() ? "" : ", ";
            words += text(word);
        }
    }
    if (!words.empty())
        words[0] = upperAscii(words[0]);
    return words;
}

std::optional<std::int32_t> elevationOf(const DatabaseRecord& record) {
    const auto* const airport = dynamic_cast<const AirportRecord*>(&record);
    return airport != nullptr && airport->elevationFt != kNoElevationFt
               ? std::optional(airport->elevationFt)
               : std::nullopt;
}

}  // namespace korvel
