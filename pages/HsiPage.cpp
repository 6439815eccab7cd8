#include "pages/HsiPage.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <span>
#include <string_view>

#include "base/TextNumbers.h"
#include "config/Text.h"
#include "config/texts/AircraftTexts.h"
#include "config/texts/InstrumentTexts.h"
#include "config/texts/StatusTexts.h"
#include "geo/GeoText.h"
#include "geo/Geodesy.h"
#include "geo/Units.h"
#include "pages/ApproachBox.h"
#include "pages/HsiPainter.h"
#include "pages/NavField.h"
#include "pages/NextWaypoints.h"
#include "pages/WarningFlag.h"
#include "paint/AreaCanvas.h"
#include "paint/Clip.h"
#include "paint/LabelSpace.h"
#include "paint/MapColorCache.h"
#include "paint/TypeSizes.h"

namespace korvel {
namespace {

constexpr double kMostScale = 3;
constexpr double kMostScaleOverMap = 1.4;  // the map stays what the page is for
constexpr double kLabelShare = 1.35;       // of the map's type size
constexpr double kRoomAroundLabels = 3;    // that names on the map leave

int toWhole(double degrees) {
    const int whole = RoundToInt(PositiveMod(degrees, 360));
    return whole == 0 ? 360 : whole;
}

Rect boxAround(std::span<const Point> points) {
    const auto [left, right] = std::ranges::minmax(points, {}, &Point::x);
    const auto [top, bottom] = std::ranges::minmax(points, {}, &Point::y);
    return {left.x, top.y, right.x - left.x, bottom.y - top.y};
}

/// So that a name straight ahead does not stand under the needle.
void addBoxesAlong(const Segment& line, double size, std::vector<Rect>& boxes) {
    const double length = std::hypot(line.to.x - line.from.x, line.to.y - line.from.y);
    const int steps = std::max(1, RoundToInt(2 * length / size));
    const double side = size / 2;
    for (int step = 0; step <= steps; ++step) {
        const double share = static_cast<double>(step) / steps;
        boxes.push_back({line.from.x + share * (line.to.x - line.from.x) - side / 2,
                         line.from.y + share * (line.to.y - line.from.y) - side / 2, side, side});
    }
}

void addBoxes(const HsiGeometry::Needle& needle, double size, std::vector<Rect>& boxes) {
    addBoxesAlong(needle.front, size, boxes);
    addBoxesAlong(needle.tail, size, boxes);
    if (needle.bar)
        addBoxesAlong(*needle.bar, size, boxes);
    addBoxesAlong({needle.marks.front(), needle.marks.back()}, size, boxes);
    boxes.push_back(boxAround(needle.head));
    boxes.push_back(boxAround(needle.toFrom));
}

// Makes the card as large as the page allows, around the aircraft's point: the instrument is drawn
// in its own pixels and scaled to the page's.
class ScaledHsi {
 public:
    /// `left` is the room that the page keeps free at its left edge, `corners` is what else the
    /// card keeps off.
    ScaledHsi(const Rect& page, Point aircraft, double textPx, double mostScale, double left,
              std::span<const Rect> corners = {})
        : aircraft_(aircraft) {
        const double above = kCard + kReadOut;
        scale_ = std::min({aircraft_.y / above, (page.height - aircraft_.y) / kCard,
                           (aircraft_.x - left) / kCard, mostScale});
        scale_ = std::max(scale_, 0.2);
        // A card that covers nothing is of no use when it is too small to read.
        const double least = 0.6 * scale_;
        for (const Rect& box : corners)
            scale_ = std::min(scale_, distanceTo(box, aircraft_) / kCard);
        scale_ = std::max(scale_, least);
        labelHeight_ = std::max(1, RoundToInt(kLabelShare * textPx / scale_));
    }

    void paint(Canvas& canvas, const HsiState& state, const MapColorCache& colors,
               const std::string& note) const {
        AreaCanvas own(canvas,
                       {aircraft_.x - kMiddle * scale_, aircraft_.y - kMiddle * scale_,
                        2 * kMiddle * scale_, 2 * kMiddle * scale_},
                       scale_);
        paintHsi(own, placed(state), colors, note);
    }

    // The boxes of the texts on the page.
    std::vector<Rect> labels(const TextMeasure& texts, const HsiState& state,
                             const std::string& note) const {
        const HsiGeometry geometry(placed(state));
        const double height = placed(state).labelHeight;
        const Font font{height, FontWeight::Bold};
        std::vector<Rect> boxes{
            geometry.readOut(texts.measure(geometry.headingText(), font).width).box};
        for (const HsiGeometry::Tick& tick : geometry.ticks())
            if (tick.labelled)
                boxes.push_back(geometry.labelBox(
                    tick, texts.measure(HsiGeometry::labelText(tick.value), font).width));
        const Font small = HsiGeometry::noteFont(height);
        boxes.push_back(geometry.noteBox(texts.measure(note, small).width, small.height));
        if (const auto needle = geometry.needle())
            addBoxes(*needle, height, boxes);
        if (const auto mark = geometry.bearingMark())
            for (const Segment& chord : *mark)
                boxes.push_back(boxAround(std::array{chord.from, chord.to}));
        for (Rect& box : boxes)
            box = {aircraft_.x + (box.x - kMiddle) * scale_,
                   aircraft_.y + (box.y - kMiddle) * scale_, box.width * scale_,
                   box.height * scale_};
        return boxes;
    }

    double radius() const { return kCard * scale_; }
    Point aircraft() const { return aircraft_; }

 private:
    static constexpr int kCard = 188;     // radius with the bearing mark on the rim
    static constexpr int kReadOut = 40;   // above the rim
    static constexpr int kMiddle = 1000;  // far from the edges of the instrument's own canvas

    HsiState placed(HsiState state) const {
        state.labelHeight = std::min(labelHeight_, kReadOut - 12);
        state.place(kMiddle, kMiddle);
        return state;
    }

    Point aircraft_;
    double scale_ = 1;
    int labelHeight_ = 0;
};

struct Flag {
    Point center;
    std::string_view word;
};

// What keeps the indicator from showing all.
std::vector<Flag> flags(const ScaledHsi& hsi, const CockpitData& data) {
    const Point at = hsi.aircraft();
    const double away = 0.42 * hsi.radius();
    std::vector<Flag> all;
    if (!data.trackMagDeg)
        all.push_back({{at.x, at.y - away}, text(kInstrumentTexts.noTrack)});
    if (!data.bearingMagDeg)
        all.push_back({{at.x, at.y + away}, text(kInstrumentTexts.noWaypoint)});
    return all;
}

void paintFlags(Canvas& canvas, const ScaledHsi& hsi, const CockpitData& data, double textPx,
                const MapColorCache& colors) {
    for (const Flag& flag : flags(hsi, data))
        paintWarningFlag(canvas, flag.center, flag.word, textPx, colors);
}

std::string valueText(const NavFieldText& text) {
    return text.unit.empty() ? text.value : text.value + " " + text.unit;
}

struct Named {
    std::string_view name;
    std::string value;
};

// A corner's field: its name over its value.
void paintCorner(Canvas& canvas, const Named& field, const Rect& room, bool right, double textPx,
                 const MapColorCache& colors) {
    TextStyle style{.font = {.height = textPx, .weight = FontWeight::Bold},
                    .color = colors[ColorKey::HsiLine],
                    .alignX = right ? AlignX::Right : AlignX::Left,
                    .alignY = AlignY::Top};
    const double x = right ? room.right() : room.x;
    const double nameWidth = canvas.textMeasure().measure(field.name, style.font).width;
    style.font.height *= std::min(1.0, room.width / std::max(nameWidth, 1.0));
    canvas.text({x, room.y}, field.name, style);
    style.font.height = std::round(textPx * 1.9);
    const double width = canvas.textMeasure().measure(field.value, style.font).width;
    style.font.height *= std::min(1.0, room.width / std::max(width, 1.0));
    style.color = colors[ColorKey::HsiNumeral];
    canvas.text({x, room.y + 1.3 * textPx}, field.value, style);
}

void paintCorners(Canvas& canvas, const ScaledHsi& hsi, const CockpitData& data, double textPx,
                  const MapColorCache& colors) {
    const double margin = textPx;
    const double height = std::round(3 * textPx);
    const double bottom = canvas.height() - margin - height + 0.5 * textPx;
    const auto corner = [&](NavFieldId id, bool right, double top) {
        // So far from the middle the card reaches beside the corner's own middle.
        const double away = std::abs(hsi.aircraft().y - top - height / 2);
        const double card = std::sqrt(std::max(0.0, hsi.radius() * hsi.radius() - away * away));
        const double width = std::min(canvas.width() / 2 - card - 2 * margin, canvas.width() * 0.3);
        if (width < 4 * textPx)
            return;
        const double left = right ? canvas.width() - margin - width : margin;
        const NavField& field = navField(id);
        paintCorner(canvas, {text(field.header), valueText(field.format(data))},
                    {left, top, width, height}, right, textPx, colors);
    };
    corner(NavFieldId::Waypoint, false, margin);
    corner(NavFieldId::DesiredTrack, true, margin);
    corner(NavFieldId::CrossTrack, false, bottom);
    corner(NavFieldId::Distance, true, bottom);
}

/// Beside the card, between the corners: what comes behind the leg at the left, the altitude that
/// is wanted and what it takes at the right.
void paintSides(Canvas& canvas, const ScaledHsi& hsi, const CockpitData& data, double textPx,
                const MapColorCache& colors) {
    const double margin = textPx;
    const double corner = std::round(3.5 * textPx) + margin;
    const double height = canvas.height() - 2 * corner;
    const double width = hsi.aircraft().x - hsi.radius() - 2 * margin;
    paintNextWaypoints(canvas, data, {margin, corner, width, height}, textPx, colors);
    Rect room{canvas.width() - margin - width, corner, width, std::round(3 * textPx)};
    for (const NavFieldId id : {NavFieldId::TargetAltitude, NavFieldId::RequiredVerticalSpeed}) {
        const NavField& field = navField(id);
        if (width < 4 * textPx || room.bottom() > corner + height ||
            field.format(data).value == kNoValue)
            continue;
        paintCorner(canvas, {text(field.header), valueText(field.format(data))}, room, true, textPx,
                    colors);
        room.y += std::round(3.4 * textPx);
    }
    if (data.wind && width >= 4 * textPx && room.bottom() <= corner + height)
        paintCorner(
            canvas,
            {text(data.wind->entered ? kAircraftTexts.windEntered : kAircraftTexts.windEstimated),
             windText(data)},
            room, true, textPx, colors);
}

double keptFree(const Rect& page, const CockpitData& data) {
    return data.approach ? approachBox(page.width, page.height).right() : 0;
}

ScaledHsi overMap(const Rect& page, const CockpitData& data, const HsiOverMap& place) {
    return {page,
            place.aircraft,
            mapTextPx(page.width, page.height),
            kMostScaleOverMap,
            keptFree(page, data),
            place.corners};
}

std::string noteFor(const CockpitData& data) {
    return data.crossTrackNm ? fullScaleText(data) : std::string();
}

}  // namespace

HsiState hsiState(const CockpitData& data) {
    HsiState state;
    if (!data.trackMagDeg)
        return state;
    state.heading = toWhole(*data.trackMagDeg);
    if (data.bearingMagDeg)
        state.bearing = *data.bearingMagDeg;
    const std::optional<double> course =
        data.obsCourseMagDeg ? data.obsCourseMagDeg : data.desiredTrackMagDeg;
    if (!course)
        return state;
    state.course = toWhole(*course);
    if (data.crossTrackNm && data.fullScaleNm > 0)
        state.deviation = *data.crossTrackNm / data.fullScaleNm;
    if (data.bearingMagDeg)
        state.toFrom = std::abs(std::remainder(*data.bearingMagDeg - *course, 360.0)) <= 90 ? 1 : 2;
    return state;
}

std::string fullScaleText(const CockpitData& data) {
    UnitLabels labels;
    std::string number =
        formatFixed(ConvertDistance(data.fullScaleNm, data.distanceUnit, &labels), 2);
    while (number.ends_with('0'))
        number.pop_back();
    if (number.ends_with('.'))
        number.pop_back();
    return "±" + number + " " + std::string(labels.distance);
}

void paintHsiPage(Canvas& canvas, const CockpitData& data, Point aircraft,
                  const MapColorCache& colors) {
    const Rect page = canvas.area();
    const double textPx = instrumentTextPx(page.width, page.height);
    canvas.rect(page, Brush{colors[ColorKey::MapBackground]}, std::nullopt);
    const ScaledHsi hsi(page, aircraft, textPx, kMostScale, keptFree(page, data));
    paintCorners(canvas, hsi, data, textPx, colors);
    paintSides(canvas, hsi, data, textPx, colors);
    hsi.paint(canvas, hsiState(data), colors, noteFor(data));
    paintFlags(canvas, hsi, data, std::round(1.3 * textPx), colors);
    if (!data.position && data.positionAgeSec)
        paintWarningFlag(canvas, hsi.aircraft(),
                         formatText(kStatusTexts.positionLost, {ageText(*data.positionAgeSec)}),
                         std::round(1.6 * textPx), colors);
}

void paintHsiOverMap(Canvas& canvas, const CockpitData& data, const HsiOverMap& place,
                     const MapColorCache& colors) {
    const ScaledHsi hsi = overMap(canvas.area(), data, place);
    hsi.paint(canvas, hsiState(data), colors, noteFor(data));
    paintFlags(canvas, hsi, data, mapTextPx(canvas.width(), canvas.height()), colors);
}

std::vector<Rect> hsiLabelsOverMap(const TextMeasure& texts, const Rect& page,
                                   const CockpitData& data, const HsiOverMap& place) {
    const ScaledHsi hsi = overMap(page, data, place);
    std::vector<Rect> boxes = hsi.labels(texts, hsiState(data), noteFor(data));
    std::ranges::transform(boxes, boxes.begin(),
                           [](const Rect& box) { return grown(box, kRoomAroundLabels); });
    const double textPx = mapTextPx(page.width, page.height);
    for (const Flag& flag : flags(hsi, data))
        boxes.push_back(warningFlagBox(texts, flag.center, flag.word, textPx));
    return boxes;
}

}  // namespace korvel
