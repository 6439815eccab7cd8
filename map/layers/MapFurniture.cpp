#include "map/layers/MapFurniture.h"

#include <algorithm>
#include <cmath>
#include <string_view>

#include "config/Text.h"
#include "config/texts/StatusTexts.h"
#include "geo/GeoText.h"
#include "geo/Units.h"
#include "paint/LabelSpace.h"
#include "paint/TypeSizes.h"

namespace korvel {
namespace {

constexpr double kScaleShareOfWidth = 0.2;  // the scale bar at its longest
constexpr double kNoteShareOfWidth = 0.35;  // a longer note is set in two lines

// Boxes of one size of type.
class BoxLayout {
 public:
    BoxLayout(const TextMeasure& texts, const Font& font)
        : texts_(texts), font_(font), margin_(boxMargin(font)) {}

    double margin() const { return margin_; }
    double height() const { return boxHeight(font_); }
    double width(const std::string& text) const {
        return std::ceil(texts_.measure(text, font_).width) + 2 * margin_;
    }
    InfoBox at(double left, double top, std::string text) const {
        const double wide = width(text);
        return {{left, top, wide, height()}, std::move(text)};
    }
    /// With its lower right corner there, in two lines where it has them or is longer than `most`.
    InfoBox endingAt(double right, double bottom, std::string text, double most) const {
        double wide = width(text);
        double high = height();
        std::size_t gap = text.find('\n');
        if (gap == std::string::npos && wide > most)
            gap = middleSpace(text);
        if (gap != std::string::npos) {
            text[gap] = '\n';
            wide = std::max(width(text.substr(0, gap)), width(text.substr(gap + 1)));
            high += lineHeight(font_);
        }
        return {{right - wide, bottom - high, wide, high}, std::move(text)};
    }

 private:
    static std::size_t middleSpace(std::string_view text) {
        const std::size_t after = text.find(' ', text.size() / 2);
        const std::size_t before = text.rfind(' ', text.size() / 2);
        if (after == std::string_view::npos || before == std::string_view::npos)
            return std::min(after, before);
        return after + before <= text.size() ? after : before;
    }

    const TextMeasure& texts_;
    Font font_;
    double margin_;
};

double scaleHeight(const BoxLayout& boxes) { return boxes.height() + boxes.margin(); }

ScaleBar layOutScale(const Rect& view, const MapProjection& projection, const BoxLayout& boxes,
                     DistanceUnit unit) {
    const double lengthNm =
        roundLengthNm(view.width * kScaleShareOfWidth / projection.pixelsPerNm(), unit);
    const double length = lengthNm * projection.pixelsPerNm();
    ScaleBar scale;
    scale.text = distanceText(lengthNm, unit);
    const double wide = std::max(length + 2 * boxes.margin(), boxes.width(scale.text));
    const double high = scaleHeight(boxes);
    scale.area = {boxes.margin(), view.height - boxes.margin() - high, wide, high};
    const double left = scale.area.center().x - length / 2;
    const double y = scale.area.bottom() - boxes.margin();
    scale.bar = {{left, y}, {left + length, y}};
    return scale;
}

std::string firstLine(const std::string& lines) { return lines.substr(0, lines.find('\n')); }
std::string lastLine(const std::string& lines) { return lines.substr(lines.rfind('\n') + 1); }

std::vector<std::string> noteTexts(const CockpitData& data, const MapState& state) {
    std::vector<std::string> texts;
    if (state.trustMarks && !data.databaseNotice.empty())
        texts.push_back(firstLine(data.databaseNotice));
    if (state.sparse != nullptr)
        texts.emplace_back(text(*state.sparse));
    if (state.terrain != nullptr)
        texts.emplace_back(text(*state.terrain));
    if (state.moved)
        texts.emplace_back(text(kStatusTexts.lookingAround));
    if (state.trustMarks && data.simulated)
        texts.emplace_back(text(kStatusTexts.simulator));
    if (!data.status.empty())
        texts.push_back(lastLine(data.status));
    else if (!data.position)
        texts.emplace_back(text(kStatusTexts.noGpsSignal));
    return texts;
}

std::vector<InfoBox> layOutNotes(const Rect& view, const CockpitData& data, const BoxLayout& boxes,
                                 const MapState& state) {
    std::vector<InfoBox> notes;
    const double right = view.width - boxes.margin();
    double bottom = view.height - boxes.margin();
    for (std::string& words : noteTexts(data, state)) {
        notes.push_back(
            boxes.endingAt(right, bottom, std::move(words), kNoteShareOfWidth * view.width));
        bottom = notes.back().area.y - std::round(boxes.margin() / 2);
    }
    return notes;
}

InfoBox layOutAlarm(const Rect& view, const CockpitData& data, const BoxLayout& boxes,
                    const MapFurniture& corners) {
    std::string words = data.positionAgeSec
                            ? formatText(kStatusTexts.positionLost, {ageText(*data.positionAgeSec)})
                            : formatText(kStatusTexts.positionLost, {""});
    while (words.ends_with(' '))
        words.pop_back();
    const double left = std::round((view.width - boxes.width(words)) / 2);
    InfoBox alarm = boxes.at(left, boxes.margin(), std::move(words));
    const bool fits = alarm.area.x > corners.northArrow.right() + boxes.margin() &&
                      alarm.area.right() < corners.range.area.x - boxes.margin();
    if (!fits)
        alarm.area.y += corners.northArrow.bottom();
    return alarm;
}

// As low as it can be without standing on another box.
InfoBox layOutMessage(const Rect& view, const std::string& message, const BoxLayout& boxes,
                      const std::vector<Rect>& others) {
    InfoBox box = boxes.endingAt(view.width, view.height - boxes.margin(), message,
                                 view.width - 2 * boxes.margin());
    box.area.x = std::round((view.width - box.area.width) / 2);
    const auto under = [&box](const Rect& other) { return overlap(other, box.area); };
    for (auto other = std::find_if(others.begin(), others.end(), under); other != others.end();
         other = std::find_if(others.begin(), others.end(), under))
        box.area.y = other->y - std::round(boxes.margin() / 2) - box.area.height;
    return box;
}

}  // namespace

std::vector<Rect> MapFurniture::areas() const {
    std::vector<Rect> all{northArrow, range.area, scale.area};
    for (const InfoBox& note : notes)
        all.push_back(note.area);
    all.insert(all.end(), alarms.begin(), alarms.end());
    for (const std::optional<InfoBox>& box : {message, alarm})
        if (box)
            all.push_back(box->area);
    return all;
}

MapFurniture layOutFurniture(const TextMeasure& texts, const Rect& view, const CockpitData& data,
                             const MapProjection& projection, int rangeNm, double textPx,
                             const MapState& state) {
    const BoxLayout boxes(texts, infoFont(textPx));
    const double margin = boxes.margin();
    MapFurniture result;
    const double arrow = std::round(textPx * 2.9);
    result.northArrow = {margin, margin, arrow, arrow};
    const std::string range = distanceText(rangeNm, data.distanceUnit);
    result.range = boxes.at(view.width - margin - boxes.width(range), margin, range);
    result.scale = layOutScale(view, projection, boxes, data.distanceUnit);
    result.notes = layOutNotes(view, data, boxes, state);
    result.alarms.assign(state.alarms.begin(), state.alarms.end());
    if (!data.message.empty())
        result.message = layOutMessage(view, data.message, boxes, result.areas());
    if (!data.position && data.lastPosition)
        result.alarm = layOutAlarm(view, data, BoxLayout(texts, alarmFont(textPx)), result);
    return result;
}

std::vector<Rect> lowerCorners(const TextMeasure& texts, const Rect& view, const CockpitData& data,
                               double textPx, bool trustMarks) {
    const BoxLayout boxes(texts, infoFont(textPx));
    const double high = scaleHeight(boxes) + boxes.margin();
    const double wide = kScaleShareOfWidth * view.width + 3 * boxes.margin();
    std::vector<Rect> corners{{0, view.height - high, wide, high}};
    for (const InfoBox& note : layOutNotes(view, data, boxes, {.trustMarks = trustMarks}))
        corners.push_back(note.area);
    return corners;
}

double roundLengthNm(double longestNm, DistanceUnit unit) {
    const double perNm = ConvertDistance(1, unit);
    const double longest = longestNm * perNm;
    const double power = std::pow(10, std::floor(std::log10(longest)));
    for (const double step : {5.0, 2.0})
        if (step * power <= longest)
            return step * power / perNm;
    return power / perNm;
}

}  // namespace korvel
