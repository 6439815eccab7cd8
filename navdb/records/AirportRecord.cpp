#include "navdb/records/AirportRecord.h"

#include <array>
#include <utility>

#include "base/Ascii.h"
#include "navdb/file/DatabaseTables.h"

namespace korvel {

std::string AirportRecord::GetInfoText() const {
    static constexpr std::array<std::pair<AirportFlag, std::string_view>, 7> kWords{{
        {kAirportSeaplaneBase, "seaplane base"},
        {kAirportHeliport, "heliport"},
        {kAirportPrivate, "private"},
        {kAirportTower, "tower"},
        {kAirportHardSurface, "hard surface"},
        {kAirportLighted, "lighted"},
        {kAirportBeacon, "beacon"},
    }};
    std::string text;
    for (const auto& [flag, word] : kWords) {
        if ((flags & flag) != 0) {
            text += text.empty() ? "" : ", ";
            text += word;
        }
    }
    if (!text.empty())
        text[0] = upperAscii(text[0]);
    return text;
}

}  // namespace korvel
