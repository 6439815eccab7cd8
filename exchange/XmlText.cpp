#include "exchange/XmlText.h"

#include "base/Calendar.h"
#include "base/TextNumbers.h"
#include "geo/Geodesy.h"

namespace korvel {

std::string xmlText(std::string_view text) {
    std::string xml;
    for (const char c : text) {
        switch (c) {
            case '&':
                xml += "&amp;";
                break;
            case '<':
                xml += "&lt;";
                break;
            case '>':
                xml += "&gt;";
                break;
            case '"':
                xml += "&quot;";
                break;
            default:
                if (static_cast<unsigned char>(c) >= ' ')
                    xml += c;
        }
    }
    return xml;
}

std::string numberText(double value, int decimals) {
    std::string number = formatFixed(value, decimals);
    if (number.starts_with('-') && number.find_first_of("123456789") == std::string::npos)
        number.erase(0, 1);
    return number;
}

std::string degreesText(double radians) { return numberText(radians * kRadToDeg, 7); }

std::string isoUtc(std::int64_t unixS) {
    const LocalTime time = localTimeAt(unixS);
    return dateText(time).insert(6, "-").insert(4, "-") + "T" + timeText(time, true, ":") + "Z";
}

}  // namespace korvel
