#include "map/MapLegend.h"

#include <algorithm>
#include <array>
#include <memory>
#include <vector>

#include "cockpit/CockpitData.h"
#include "cockpit/PlaceSet.h"
#include "config/Text.h"
#include "config/texts/LegendTexts.h"
#include "geo/Geodesy.h"
#include "ground/airspace/Airspace.h"
#include "ground/obstacles/Obstacle.h"
#include "map/MapContent.h"
#include "map/ground/AirspaceLines.h"
#include "map/layers/ObstacleLayer.h"
#include "map/layers/PlaceSymbol.h"
#include "navdb/file/DatabaseTables.h"
#include "paint/AreaCanvas.h"
#include "paint/Clip.h"
#include "paint/MapColorCache.h"
#include "paint/TextLine.h"

namespace korvel {
namespace {

constexpr double kSampleEm = 4;    ///< width of the symbols' column, in type sizes
constexpr double kEnlarged = 1.4;  ///< against the map: to be compared, not to be crowded
constexpr int kRangeNm = 8;
constexpr int kAltitudeFt = 3000;  ///< at which the aircraft is
constexpr double kRunwayTrueDeg = 60;

/// A small map of its own, on which one thing is drawn.
struct Sample {
    Sample(Canvas& cell, const MapColorCache& colors, double textPx)
        : canvas(cell), content{.data = data, .colors = colors, .view = viewOf(cell, textPx)} {}

    static MapView viewOf(const Canvas& cell, double textPx) {
        MapViewport viewport;
        viewport.layout(PageId::NorthUp, static_cast<int>(cell.width()),
                        static_cast<int>(cell.height()));
        viewport.chooseRange(kRangeNm);
        MapView view(viewport, {47 * kDegToRad, 10 * kDegToRad}, 0, cell.area());
        view.textPx = textPx;
        return view;
    }
    [[nodiscard]] Point middle() const { return content.view.area.center(); }

    Canvas& canvas;
    CockpitData data;
    MapContent content;
};

template <PlaceClass kClass, unsigned kFlags = 0>
void place(Sample& sample) {
    MapPlace place;
    place.placeClass = kClass;
    place.place.flags = kFlags;
    auto details = std::make_shared<PlaceDetails>();
    details->runwayTrueDeg = kRunwayTrueDeg;
    place.details = std::move(details);
    const PlaceSet places;
    sample.content.places = &places;
    PlaceSymbols(sample.content).paint(sample.canvas, {.place = &place, .at = sample.middle()});
}

template <int kTopFt>
void obstacle(Sample& sample) {
    const double low = 0.4 * sample.content.view.textPx;
    std::vector<Obstacle> mast(1);
    mast.front().position =
        sample.content.view.projection.unproject({sample.middle().x, sample.middle().y + low});
    mast.front().topFt = kTopFt;
    sample.data.position = mast.front().position;
    sample.data.altitudeFt = kAltitudeFt;
    sample.data.fix3D = true;
    sample.content.obstacles = &mast;
    sample.content.obstacleHeights = false;
    ObstacleLayer layer(sample.content);
    LabelRoom room(sample.content.view.area);
    layer.layOut(sample.canvas.textMeasure(), room);
    layer.paint(sample.canvas);
    layer.paintWords(sample.canvas);
}

template <char kClass>
void airspace(Sample& sample) {
    Airspace airspace;
    airspace.airspaceClass = kClass;
    const AirspaceLook look = lookOf(airspace, kRangeNm);
    const Pen pen{sample.content.colors[look.color], look.width};
    const Rect& area = sample.content.view.area;
    const Segment line{{area.x, area.center().y}, {area.right(), area.center().y}};
    if (look.dashed)
        forDashes(line, 1, [&](Segment dash) { sample.canvas.line(dash.from, dash.to, pen); });
    else
        sample.canvas.line(line.from, line.to, pen);
}

template <ColorKey kColor>
void ground(Sample& sample) {
    sample.canvas.rect(grown(sample.content.view.area, -2), Brush{sample.content.colors[kColor]},
                       std::nullopt);
}

void expiredName(Sample& sample) {
    writeFrom(sample.canvas, {0, sample.middle().y}, "(KSEA)",
              {.height = sample.content.view.textPx / kEnlarged, .weight = FontWeight::Bold},
              sample.content.colors[ColorKey::MapNavaid]);
}

struct LegendRow {
    Text words;
    void (*draw)(Sample& sample) = nullptr;
};

constexpr std::array kRows{
    LegendRow{kLegendTexts.towerAirport, place<PlaceClass::TowerAirport>},
    LegendRow{kLegendTexts.hardAirport, place<PlaceClass::HardAirport>},
    LegendRow{kLegendTexts.softAirport, place<PlaceClass::SoftAirport>},
    LegendRow{kLegendTexts.strip, place<PlaceClass::Strip>},
    LegendRow{kLegendTexts.privateAirport, place<PlaceClass::SoftAirport, kAirportPrivate>},
    LegendRow{kLegendTexts.seaplaneBase, place<PlaceClass::SeaplaneBase>},
    LegendRow{kLegendTexts.heliport, place<PlaceClass::Heliport>},
    LegendRow{kLegendTexts.vor, place<PlaceClass::LowVor>},
    LegendRow{kLegendTexts.ndb, place<PlaceClass::Ndb>},
    LegendRow{kLegendTexts.fix, place<PlaceClass::RouteFix>},
    LegendRow{kLegendTexts.visualPoint, place<PlaceClass::VisualPoint>},
    LegendRow{kLegendTexts.userFix, place<PlaceClass::UserFix>},
    LegendRow{kLegendTexts.expired, expiredName},
    LegendRow{kLegendTexts.obstacleBelow, obstacle<1000>},
    LegendRow{kLegendTexts.obstacleNear, obstacle<2500>},
    LegendRow{kLegendTexts.obstacleReaches, obstacle<3500>},
    LegendRow{kLegendTexts.airspaceB, airspace<'B'>},
    LegendRow{kLegendTexts.airspaceC, airspace<'C'>},
    LegendRow{kLegendTexts.airspaceD, airspace<'D'>},
    LegendRow{kLegendTexts.airspaceSpecial, airspace<'R'>},
    LegendRow{kLegendTexts.groundDanger, ground<ColorKey::GeoDanger>},
    LegendRow{kLegendTexts.groundWarning, ground<ColorKey::GeoWarning>},
};

/// In which the longest words still find room.
double fittingTextPx(const TextMeasure& texts, double textPx, double room) {
    double longest = 1;
    for (const LegendRow& row : kRows)
        longest = std::max(longest, texts.measure(text(row.words), {.height = textPx}).width);
    return textPx * std::min(1.0, room / longest);
}

}  // namespace

std::size_t mapLegendRows() { return kRows.size(); }

void paintMapLegend(Canvas& canvas, const MapColorCache& colors, double textPx) {
    canvas.rect(canvas.area(), Brush{colors[ColorKey::MapBackground]}, std::nullopt);
    const double height = canvas.height() / static_cast<double>(kRows.size());
    const double begin = (kSampleEm + 2) * textPx;
    const double wordsPx =
        fittingTextPx(canvas.textMeasure(), textPx, canvas.width() - begin - textPx / 2);
    double y = 0;
    for (const LegendRow& row : kRows) {
        AreaCanvas cell(canvas, {textPx, y, kSampleEm * textPx, height});
        Sample sample(cell, colors, kEnlarged * textPx);
        row.draw(sample);
        writeFrom(canvas, {begin, y + height / 2}, text(row.words), {.height = wordsPx},
                  colors[ColorKey::HsiNumeral]);
        y += height;
    }
}

}  // namespace korvel
