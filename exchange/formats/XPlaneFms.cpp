#include "exchange/formats/XPlaneFms.h"

#include <array>
#include <vector>

#include "base/Ascii.h"
#include "base/Calendar.h"
#include "base/TextLines.h"
#include "base/TextNumbers.h"
#include "config/Text.h"
#include "config/texts/ExchangeTexts.h"
#include "exchange/XmlText.h"
#include "nav/plan/RouteWords.h"

namespace korvel {
namespace {

struct KindCode {
    int code;
    KindMask kind;  ///< 0: the user's own
};
constexpr std::array kKinds{KindCode{1, kAirportKind}, KindCode{2, kNdbKind}, KindCode{3, kVorKind},
                            KindCode{11, kFixKind},    KindCode{28, 0},       KindCode{13, 0}};

const KindCode* kindOfCode(std::string_view word) {
    for (const KindCode& each : kKinds)
        if (formatInt(each.code) == word)
            return &each;
    return nullptr;
}

int codeOf(const ExportPoint& point) {
    for (const KindCode& each : kKinds)
        if (each.kind == (point.isOwn ? 0 : point.kind))
            return each.code;
    return 28;
}

/// A row of the route; nothing for the lines before it.
std::optional<ForeignPoint> pointOfRow(const std::vector<std::string>& words, std::string& error) {
    constexpr std::size_t kFewest = 5;
    const KindCode* const kind = words.size() >= kFewest ? kindOfCode(words[0]) : nullptr;
    if (kind == nullptr)
        return std::nullopt;
    const std::size_t at =
        words.size() > kFewest ? 3 : 2;  // behind the airway by which it is reached
    const auto position = pointOf(words[at + 1], words[at + 2]);
    if (!position)
        error = text(kExchangeTexts.badCoordinate);
    ForeignPoint point;
    point.ident = asUtf8(words[1]);
    point.kinds = kind->kind;
    point.isPublished = kind->kind != 0;
    point.position = position.value_or(GeoPoint{});
    // An airport's is its elevation; 0 stands for none.
    if (const auto altitude = wholeNumber(words[at]);
        altitude && *altitude != 0.0 && kind->kind != kAirportKind)
        point.altitudeFt = altitude;
    return point;
}

}  // namespace

bool isXPlaneFms(const Source& source) {
    TextLines lines(source.text());
    std::string_view line;
    if (!lines.next(line) || (trimmed(line) != "I" && trimmed(line) != "A") || !lines.next(line))
        return false;
    return endsWithIgnoringCase(trimmed(line), "version");
}

ForeignPlan readXPlaneFms(const Source& source) {
    ForeignPlan plan;
    ForeignRoute& route = plan.routes.emplace_back();
    TextLines lines(source.text());
    for (std::string_view line; lines.next(line);)
        if (auto point = pointOfRow(SplitWords(line), plan.error))
            route.points.push_back(std::move(*point));
    return plan;
}

std::string xplaneFmsOfPlan(std::span<const ExportPoint> points, std::int64_t nowUnixS) {
    const LocalTime now = localTimeAt(nowUnixS);
    std::string text =
        "I\n1100 Version\nCYCLE " + zeroPadded(now.year % 100, 2) + zeroPadded(now.month, 2) + "\n";
    const auto endWord = [](const ExportPoint& point, std::string_view airport) {
        return std::string(point.kind == kAirportKind ? airport : airport.substr(1));
    };
    if (!points.empty()) {
        text += endWord(points.front(), "ADEP") + ' ' + points.front().ident + '\n';
        text += endWord(points.back(), "ADES") + ' ' + points.back().ident + '\n';
    }
    text += "NUMENR " + formatInt(static_cast<long long>(points.size())) + '\n';
    for (std::size_t i = 0; i < points.size(); ++i) {
        const ExportPoint& point = points[i];
        const std::string_view via = i == 0 ? "ADEP" : i + 1 == points.size() ? "ADES" : "DRCT";
        const double altitude = point.altitudeFt == kNoAltitudeFt ? 0.0 : point.altitudeFt;
        text.append(formatInt(codeOf(point)) + ' ' + point.ident + ' ').append(via);
        text += ' ' + numberText(altitude, 6) + ' ' + degreesText(point.position.lat) + ' ' +
                degreesText(point.position.lon) + '\n';
    }
    return text;
}

}  // namespace korvel
