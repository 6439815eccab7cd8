#include "exchange/UserWaypoints.h"

#include <algorithm>
#include <set>
#include <utility>

#include "base/Ascii.h"
#include "base/AsciiText.h"
#include "base/TextNumbers.h"
#include "config/Text.h"
#include "config/texts/ExchangeTexts.h"
#include "exchange/PlainName.h"
#include "exchange/XmlText.h"

namespace korvel {
namespace {

constexpr std::size_t kLongestIdent = 11;
constexpr std::string_view kIdentMarks = "-_/.";

}  // namespace

UserWaypoints userWaypoints(std::vector<ForeignWaypoint> waypoints) {
    UserWaypoints result;
    std::set<std::string, std::less<>> taken;
    std::size_t number = 0;
    for (ForeignWaypoint& waypoint : waypoints) {
        ++number;
        std::string plain = inCapitals(plainName(waypoint.ident, kIdentMarks, kLongestIdent));
        if (plain.empty())
            plain = inCapitals(plainName(waypoint.name, kIdentMarks, kLongestIdent));
        if (plain.empty())
            plain = "WPT" + formatInt(static_cast<long long>(number));
        std::string ident = plain;
        for (int i = 2; taken.contains(ident); ++i)
            ident = numberedName(plain, i, kLongestIdent);
        taken.insert(ident);
        const std::string& before = waypoint.ident.empty() ? waypoint.name : waypoint.ident;
        if (ident != before)
            result.notes.push_back(formatText(kExchangeTexts.isCalled,
                                              {std::string_view(before), std::string_view(ident)}));
        waypoint.ident = std::move(ident);
        result.waypoints.push_back(std::move(waypoint));
    }
    return result;
}

std::string userDatabaseText(const std::vector<ForeignWaypoint>& waypoints) {
    std::string text;
    for (const ForeignWaypoint& waypoint : waypoints) {
        std::string name = toAsciiText(waypoint.name);
        std::ranges::replace(name, ';', ',');  // what follows one is a remark
        text += "NAVAID_BEGIN\r\nID=" + waypoint.ident + "\r\nNAME=" + name +
                "\r\nTYPE=FIX\r\nUSAGE=VRP\r\nPOSN.LAT=" + degreesText(waypoint.position.lat) +
                "\r\nPOSN.LON=" + degreesText(waypoint.position.lon) + "\r\nNAVAID_END\r\n\r\n";
    }
    return text;
}

}  // namespace korvel
