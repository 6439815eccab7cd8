#include "screen/TapThing.h"

#include <algorithm>
#include <utility>

#include "base/TextNumbers.h"
#include "cockpit/CKorvelDoc.h"
#include "cockpit/NearAirports.h"
#include "cockpit/ObstacleText.h"
#include "cockpit/TrafficWatch.h"
#include "config/texts/InstrumentTexts.h"
#include "config/texts/TouchTexts.h"
#include "geo/GeoText.h"
#include "geo/Geodesy.h"
#include "ground/airspace/AirspaceSet.h"
#include "map/AirspaceHit.h"
#include "map/PlaceHit.h"
#include "map/PlanHit.h"
#include "map/feeds/MapFeeds.h"
#include "map/layers/ObstacleLayer.h"
#include "map/layers/TrafficLayer.h"
#include "navdb/NavDatabase.h"
#include "navdb/records/AirportRecord.h"

namespace korvel {
namespace {

/// A line is touched nearer by than a symbol: it is everywhere.
constexpr double kLinePixels = kFingerPixels / 2;
/// More are told of as one number.
constexpr std::size_t kMostLines = 4;

/// "TWR 118.100   Elev 1421 ft", and the longest runway.
std::vector<std::string> airportLines(const NearAirport& airport, int altUnit) {
    std::vector<std::string> lines;
    std::string first = airport.frequency;
    if (airport.elevationFt)
        first += (first.empty() ? "" : "   ") +
                 formatText(kTouchTexts.elevation, {altitudeText(*airport.elevationFt, altUnit)});
    if (!first.empty())
        lines.push_back(std::move(first));
    if (const std::string runway = runwayText(airport, altUnit); !runway.empty())
        lines.push_back(formatText(kTouchTexts.runway, {runway}));
    return lines;
}

std::vector<std::string> linesOf(const NavDatabase& database, const DatabaseRecord& record,
                                 int altUnit) {
    if (record.GetKind() == kAirportKind) {
        AirportRecord airport = dynamic_cast<const AirportRecord&>(record);
        database.loadDetails(airport);
        NearAirport facts;
        takeAirport(airport, facts);
        return airportLines(facts, altUnit);
    }
    std::string info = record.GetInfoText();
    return info.empty() ? std::vector<std::string>() : std::vector{std::move(info)};
}

/// What of the ground's own heights and the airspaces above fits on a card.
std::vector<std::string> groundLines(std::optional<double> heightFt, const AirspaceHits& above,
                                     int altUnit) {
    const std::string height = heightFt ? altitudeText(RoundToInt(*heightFt), altUnit) : "---";
    std::vector lines{formatText(kTouchTexts.ground, {height})};
    const std::size_t count = above.airspaces.size();
    const std::size_t shown = count < kMostLines ? count : kMostLines - 2;
    for (std::size_t i = 0; i < shown; ++i)
        lines.push_back(airspaceLine(*above.airspaces[i]));
    if (shown < count)
        lines.push_back(formatText(kTouchTexts.moreAirspaces, {static_cast<int>(count - shown)}));
    return lines;
}

/// Gathers what lies under one finger.
class Gatherer {
 public:
    Gatherer(Point finger, const TapGround& ground, const CKorvelDoc& document)
        : finger_(finger),
          symbol_(symbolUnder(finger, ground.labels)),
          ground_(ground),
          document_(document),
          database_(document.charts().database()),
          data_(document.cockpitData()),
          point_(ground.view.projection.unproject(finger)) {}

    std::vector<TapThing> gather() {
        addTraffic();
        addPlaces();
        const bool onPlace = !things_.empty();
        addObstacle();
        if (!onPlace)
            addLeg();
        const AirspaceHits above = airspaces();
        if (above.onOutline || onPlace)
            for (const Airspace* airspace : above.airspaces)
                addAirspace(*airspace);
        if (!onPlace)
            addGround(above);
        return std::move(things_);
    }

 private:
    /// Of a name the symbol that it belongs to.
    static Point symbolUnder(Point finger, const std::vector<LabelTarget>& labels) {
        const auto found = std::ranges::find_if(
            labels, [finger](const LabelTarget& each) { return each.label.contains(finger); });
        return found == labels.end() ? finger : found->symbol;
    }

    TapThing& add(TapKind kind, GeoPoint position) {
        things_.push_back({.kind = kind, .position = position, .ground = point_});
        return things_.back();
    }

    void addTraffic() {
        const TrafficView* other =
            data_.traffic
                ? trafficAt(*data_.traffic, ground_.view.projection, finger_, kFingerPixels)
                : nullptr;
        if (other == nullptr)
            return;
        TapThing& thing = add(TapKind::Traffic, other->position);
        thing.ident = other->name;
        thing.lines = {trafficMotion(*other, data_.altUnit)};
    }

    void addPlace(std::shared_ptr<const DatabaseRecord> record) {
        const auto isSame = [&](const TapThing& thing) {
            return thing.record && thing.record->key == record->key &&
                   SamePoint(thing.position, record->position);
        };
        if (std::ranges::any_of(things_, isSame))
            return;
        TapThing& thing = add(TapKind::Place, record->position);
        thing.ident = record->ident.view();
        if (record->GetName() != record->ident.view())
            thing.name = record->GetName();
        thing.expired = record->pastDate;
        thing.lines = linesOf(database_, *record, data_.altUnit);
        thing.record = std::move(record);
    }

    /// Null while the plan is not the shown one any more.
    std::shared_ptr<const DatabaseRecord> recordOfRow(std::size_t row) const {
        const std::vector<PlanWaypoint> entries = document_.flight().plan().entries();
        const bool isShown =
            row < entries.size() && entries[row].record->key == data_.plan->rows[row].key;
        return isShown ? entries[row].record : nullptr;
    }

    /// The plan's waypoints before what else stands there.
    void addPlaces() {
        if (const auto row = planPlaceAt(data_, ground_.view, symbol_, kFingerPixels))
            if (auto record = recordOfRow(*row))
                addPlace(std::move(record));
        for (const MapPlace* place : placesAt(ground_.feeds.places(), ground_.view.projection,
                                              ground_.view.rangeNm, symbol_, kFingerPixels))
            if (std::shared_ptr<const DatabaseRecord> record = database_.recordOf(place->place))
                addPlace(std::move(record));
    }

    void addObstacle() {
        const Obstacle* obstacle =
            obstacleAt(ground_.feeds.obstacles(), ground_.view.projection, finger_, kFingerPixels);
        if (obstacle == nullptr)
            return;
        TapThing& thing = add(TapKind::Obstacle, obstacle->position);
        thing.ident = obstacleName(*obstacle);
        thing.lines = {obstacleText(*obstacle, data_.altUnit)};
    }

    void addLeg() {
        const auto row = planLegAt(data_, ground_.view, finger_, kLinePixels);
        auto record = row ? recordOfRow(*row) : nullptr;
        if (!record)
            return;
        const PlanRow& end = data_.plan->rows[*row];
        TapThing& thing = add(TapKind::Leg, end.position);
        thing.ident =
            formatText(kInstrumentTexts.fromTo, {data_.plan->rows[*row - 1].ident, end.ident});
        std::string line = end.legNm ? distanceText(*end.legNm, data_.distanceUnit) : "";
        if (end.courseMagDeg)
            line += "   " + courseText(*end.courseMagDeg) + "°M";
        thing.lines = {std::move(line)};
        thing.record = std::move(record);
        thing.row = *row;
    }

    AirspaceHits airspaces() const {
        if (ground_.feeds.ground() == nullptr)
            return {};
        return airspacesAt(*ground_.feeds.ground(), ground_.view, finger_, kLinePixels);
    }

    void addAirspace(const Airspace& airspace) {
        TapThing& thing = add(TapKind::Airspace, point_);
        thing.ident = airspace.airspaceClass;
        thing.name = airspace.name;
        thing.lines = {limitWords(airspace)};
        if (!airspace.frequency.empty())
            thing.lines.push_back(airspace.frequency);
    }

    void addGround(const AirspaceHits& above) {
        TapThing& thing = add(TapKind::Ground, point_);
        thing.ident = coordinatesText(point_);
        thing.lines =
            groundLines(document_.ground().terrain().heightFt(point_), above, data_.altUnit);
    }

    Point finger_;
    Point symbol_;
    const TapGround& ground_;
    const CKorvelDoc& document_;
    const NavDatabase& database_;
    const CockpitData& data_;
    GeoPoint point_;
    std::vector<TapThing> things_;
};

}  // namespace

std::vector<TapThing> thingsAt(Point finger, const TapGround& ground, const CKorvelDoc& document) {
    return Gatherer(finger, ground, document).gather();
}

std::optional<TapThing> thingOf(const NearAirport& airport, CKorvelDoc& document) {
    const DatabaseRecord* found = document.charts().database().Find(airport.key, airport.position);
    if (found == nullptr)
        return std::nullopt;
    return TapThing{.kind = TapKind::Place,
                    .position = airport.position,
                    .ident = airport.ident,
                    .name = airport.name,
                    .expired = airport.expired,
                    .lines = airportLines(airport, document.cockpitData().altUnit),
                    .record = found->Clone(),
                    .ground = airport.position};
}

bool isMet(const TapThing& thing) {
    return thing.kind != TapKind::Airspace && thing.kind != TapKind::Ground;
}

}  // namespace korvel
