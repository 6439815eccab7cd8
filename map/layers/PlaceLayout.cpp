#include "map/layers/PlaceLayout.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

#include "geo/Geodesy.h"
#include "geo/WholeDegreeTrig.h"
#include "map/layers/AircraftLayer.h"
#include "map/layers/Layer.h"
#include "navdb/file/DatabaseTables.h"
#include "paint/Clip.h"
#include "paint/TextBox.h"

namespace korvel {
namespace {

constexpr std::size_t kMostMarks = 400;  // that a hand could still hit, and a frame can draw
constexpr int kFrequenciesToNm = 40;
constexpr std::size_t kLabelCorners = 8;  // places around a symbol for its name
constexpr double kLabelGap = 3;           // between a symbol and its label
constexpr double kSymbolGap = 2;          // between symbols far out
constexpr double kAloneGap = 3;           // type sizes, around a lesser place far out
constexpr double kRankOfLargePlaces = 9000;
constexpr double kSmallLabel = 0.8;
constexpr double kSmallestLabelPx = 11;
constexpr double kLargestShareOfView = 0.4;
constexpr double kRunwayStepPx = 16;

Rect around(Point at, double radius) {
    return {at.x - radius, at.y - radius, 2 * radius, 2 * radius};
}

Rect united(const Rect& a, const Rect& b) {
    const double x = std::min(a.x, b.x);
    const double y = std::min(a.y, b.y);
    return {x, y, std::max(a.right(), b.right()) - x, std::max(a.bottom(), b.bottom()) - y};
}

bool isMinor(PlaceClass placeClass) {
    switch (placeClass) {
        case PlaceClass::SoftAirport:
        case PlaceClass::Strip:
        case PlaceClass::SeaplaneBase:
        case PlaceClass::Heliport:
        case PlaceClass::Ndb:
        case PlaceClass::RouteFix:
        case PlaceClass::TerminalFix:
        case PlaceClass::VisualPoint:
            return true;
        default:
            return false;
    }
}

class LayoutBuilder {
 public:
    LayoutBuilder(const MapContent& content, const TextMeasure& texts, LabelRoom& room)
        : content_(content),
          view_(content.view),
          options_(content.places->options),
          texts_(texts),
          room_(room),
          sparse_(view_.rangeNm >= kSparseFromNm),
          aircraft_(aircraftArea(content.aircraft(), view_.textPx)),
          taken_(view_.area) {}

    PlaceLayout build(const std::function<void()>& beforeNavaids) {
        beforeNavaids_ = &beforeNavaids;
        for (const MapPlace& place : content_.places->places) {
            if (layout_.marks.size() == kMostMarks)
                break;
            if (!isShown(place.place, place.placeClass, view_.rangeNm, options_))
                continue;
            if (sparse_)
                letOthersIn(place.placeClass);
            add(place);
        }
        // Close by all symbols stand; the names find their room among them.
        if (!sparse_) {
            for (const PlaceMark& mark : layout_.marks) {
                letOthersIn(mark.place->placeClass);
                label(mark);
            }
        }
        letOthersIn(std::nullopt);
        return std::move(layout_);
    }

 private:
    /// Before the first navaid or fix, or at the end of all.
    void letOthersIn(std::optional<PlaceClass> next) {
        const bool first = next && (isAirport(*next) || *next == PlaceClass::UserFix);
        if (!first && beforeNavaids_ != nullptr)
            (*std::exchange(beforeNavaids_, nullptr))();
    }

    void add(const MapPlace& place) {
        const PlaceMark mark = markOf(place);
        if (!overlap(mark.area, view_.area))
            return;
        // Fixes crowd where they matter least: on the runways of an airport.
        if (place.place.kind == kFixKind && room_.taken.isTaken(mark.area))
            return;
        if (sparse_ && !hasRoom(mark))
            return;
        take(mark);
        layout_.marks.push_back(mark);
    }

    // Claims the label's room when there is.
    bool hasRoom(const PlaceMark& mark) {
        const bool farOut = view_.rangeNm >= kNamedOnlyFromNm;
        const bool alone = farOut && ruleOf(mark.place->placeClass).rank < kRankOfLargePlaces;
        if (taken_.isTaken(grown(mark.area, alone ? kAloneGap * view_.textPx : kSymbolGap)))
            return false;
        if (!farOut || overlap(mark.area, aircraft_)) {
            label(mark);
            return true;
        }
        return !room_.taken.isTaken(mark.area) && label(mark);
    }

    void take(const PlaceMark& mark) {
        if (!mark.runwaysToScale) {
            reserve(mark.area);
            return;
        }
        // Runways take a row of small boxes each: names may stand between them.
        for (const MapRunway& runway : mark.place->details->runways) {
            const auto shown = clipSegment({view_.projection.project(runway.ends[0]),
                                            view_.projection.project(runway.ends[1])},
                                           view_.area);
            if (!shown)
                continue;
            const double x = shown->to.x - shown->from.x;
            const double y = shown->to.y - shown->from.y;
            const int steps = 1 + static_cast<int>(std::hypot(x, y) / kRunwayStepPx);
            for (int step = 0; step <= steps; ++step)
                reserve(around({shown->from.x + x * step / steps, shown->from.y + y * step / steps},
                               kRunwayStepPx / 3));
        }
    }

    void reserve(const Rect& area) {
        room_.taken.reserve(area);
        taken_.reserve(area);
    }

    PlaceMark markOf(const MapPlace& place) const {
        PlaceMark mark{.place = &place, .at = view_.projection.project(place.place.position)};
        mark.area = around(mark.at, symbolRadius(place, view_.textPx));
        mark.runwaysToScale =
            showsRunways(place, view_.projection, view_.rangeNm, view_.textPx, options_);
        if (mark.runwaysToScale) {
            for (const MapRunway& runway : place.details->runways)
                for (const GeoPoint end : runway.ends)
                    mark.area = united(mark.area, around(view_.projection.project(end), 2));
        } else if (const auto direction = directionOf(place)) {
            const double reach = kRunwayStrokeShare * mark.area.width / 2;
            const int deg = *direction - view_.projection.angleDeg();
            const Point half{std::abs(reach * SinDeg(deg)), std::abs(reach * CosDeg(deg))};
            mark.area =
                united(mark.area, {mark.at.x - half.x, mark.at.y - half.y, 2 * half.x, 2 * half.y});
        }
        return mark;
    }

    bool label(const PlaceMark& mark) {
        const MapPlace& place = *mark.place;
        if (!isLabelled(place.placeClass, view_.rangeNm, options_))
            return false;
        if (isNamedByPlan(mark))
            return true;
        std::string text = labelOf(place, view_.rangeNm);
        TextStyle style = styleOf(place.placeClass);
        const TextExtent extent = texts_.measure(text, style.font);
        const double top = mark.area.center().y - extent.capHeight / 2;
        const auto corners = labelCorners(mark, extent, top);
        std::array<Rect, kLabelCorners> boxes;
        std::ranges::transform(corners, boxes.begin(), [&extent](Point corner) {
            return Rect{corner.x - 1, corner.y - 1, extent.width + 2, extent.capHeight + 2};
        });
        const auto found = claimFirst(room_.taken, boxes, room_.planLines);
        if (!found)
            return false;
        taken_.reserve(boxes[*found]);
        if (content_.labels != nullptr)
            content_.labels->push_back({boxes[*found], mark.at});
        layout_.names.push_back(
            {{corners[*found].x, corners[*found].y + extent.capHeight}, std::move(text), style});
        return true;
    }

    // One name is enough where a waypoint of the plan stands on its place.
    bool isNamedByPlan(const PlaceMark& mark) const {
        constexpr double kSamePx = 2;
        const std::string_view ident = mark.place->place.ident.view();
        return std::ranges::any_of(room_.named, [&](const LabelRoom::Named& named) {
            return std::hypot(named.at.x - mark.at.x, named.at.y - mark.at.y) < kSamePx &&
                   named.ident == ident;
        });
    }

    // Top left corners of the places where a label may stand, the best first. Identifiers have no
    // letters below the line.
    std::array<Point, kLabelCorners> labelCorners(const PlaceMark& mark, const TextExtent& extent,
                                                  double middle) const {
        Rect area = mark.area;
        if (overlap(area, aircraft_))
            area = united(area, aircraft_);
        if (area.width > view_.area.width * kLargestShareOfView ||
            area.height > view_.area.height * kLargestShareOfView)
            area = around(mark.at, symbolRadius(*mark.place, view_.textPx));
        const double right = area.right() + kLabelGap;
        const double left = area.x - kLabelGap - extent.width;
        const double centered = area.center().x - extent.width / 2;
        const double above = area.y - kLabelGap - extent.capHeight;
        const double below = area.bottom() + kLabelGap;
        return {{{right, middle},
                 {left, middle},
                 {centered, above},
                 {centered, below},
                 {right, above},
                 {right, below},
                 {left, above},
                 {left, below}}};
    }

    TextStyle styleOf(PlaceClass placeClass) const {
        const ColorValue background = content_.colors[ColorKey::MapBackground];
        const bool minor = isMinor(placeClass);
        const double share = minor ? kSmallLabel : 1.0;
        return {
            .font = {.height = std::max(kSmallestLabelPx, std::round(view_.textPx * share)),
                     .weight = minor ? FontWeight::Regular : FontWeight::Bold},
            .color = blended(content_.colors[ColorKey::MapNavaid], background, minor ? 0.3 : 0.1),
            .halo = background};
    }

    const MapContent& content_;
    const MapView& view_;
    const MapPlaceOptions& options_;
    const TextMeasure& texts_;
    LabelRoom& room_;
    bool sparse_;
    Rect aircraft_;
    const std::function<void()>* beforeNavaids_ = nullptr;  ///< until it is called
    LabelSpace taken_;                                      ///< by places and their names alone
    PlaceLayout layout_;
};

}  // namespace

PlaceLayout layOutPlaces(const MapContent& content, const TextMeasure& texts, LabelRoom& room,
                         const std::function<void()>& beforeNavaids) {
    return LayoutBuilder(content, texts, room).build(beforeNavaids);
}

std::optional<int> directionOf(const MapPlace& airport) {
    const bool hasRunways = airport.placeClass == PlaceClass::TowerAirport ||
                            airport.placeClass == PlaceClass::HardAirport ||
                            airport.placeClass == PlaceClass::SoftAirport ||
                            airport.placeClass == PlaceClass::Strip;
    if (!hasRunways || !airport.details || !airport.details->runwayTrueDeg)
        return std::nullopt;
    return RoundToInt(*airport.details->runwayTrueDeg);
}

double symbolRadius(PlaceClass placeClass, double textPx) {
    switch (placeClass) {
        case PlaceClass::TowerAirport:
        case PlaceClass::HardAirport:
            return textPx * 0.40;
        case PlaceClass::SoftAirport:
        case PlaceClass::SeaplaneBase:
        case PlaceClass::Heliport:
            return textPx * 0.34;
        case PlaceClass::Ndb:
            return textPx * 0.45;
        case PlaceClass::Strip:
        case PlaceClass::RouteFix:
        case PlaceClass::TerminalFix:
            return textPx * 0.28;
        case PlaceClass::VisualPoint:
            return textPx * 0.38;
        default:
            return textPx * 0.45;
    }
}

double symbolRadius(const MapPlace& place, double textPx) {
    constexpr int kLongFt = 6000;
    constexpr int kShortFt = 2500;
    constexpr double kLarger = 1.25;
    constexpr double kSmaller = 0.8;
    const double usual = symbolRadius(place.placeClass, textPx);
    if (!isAirport(place.placeClass))
        return usual;
    // A length that is not known yet changes nothing.
    const int length = place.details ? place.details->longestRunwayFt : 0;
    if ((place.place.flags & kAirportPrivate) != 0 || (length > 0 && length < kShortFt))
        return usual * kSmaller;
    return length >= kLongFt ? usual * kLarger : usual;
}

bool showsRunways(const MapPlace& airport, const MapProjection& projection, int rangeNm,
                  double textPx, const MapPlaceOptions& options) {
    if (rangeNm > kRunwaysToNm || !options.shows(PlaceLayerBit::Runways) || !airport.details)
        return false;
    double longestPx = 0;
    for (const MapRunway& runway : airport.details->runways) {
        const Point from = projection.project(runway.ends[0]);
        const Point to = projection.project(runway.ends[1]);
        longestPx = std::max(longestPx, std::hypot(to.x - from.x, to.y - from.y));
    }
    return longestPx > 2.5 * symbolRadius(airport, textPx);
}

std::string labelOf(const MapPlace& place, int rangeNm) {
    std::string text(place.place.ident.view());
    if (rangeNm <= kFrequenciesToNm && place.details && !place.details->frequency.empty())
        text += ' ' + place.details->frequency;
    return place.place.pastDate ? '(' + text + ')' : text;
}

}  // namespace korvel
