#include "compiler/NavdbCompiler.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <iterator>
#include <span>
#include <string_view>
#include <vector>

#include "compiler/AirwayChains.h"
#include "geo/Geodesy.h"
#include "geo/Variation.h"
#include "navdb/search/NameWords.h"

namespace korvel {

namespace {

/// A text of this length and its end mark fit what is read at a time.
constexpr std::size_t kLongestRoute = kMaxTextLength - 1;

std::int32_t typeWord(PlaceType type, Usage usage) {
    return static_cast<std::int32_t>(type) | static_cast<std::int32_t>(usage);
}

PlaceType placeType(NavaidKind kind) {
    switch (kind) {
        case NavaidKind::VorDme:
            return PlaceType::VorDme;
        case NavaidKind::Vortac:
            return PlaceType::Vortac;
        case NavaidKind::Ndb:
            return PlaceType::Ndb;
        case NavaidKind::NdbDme:
            return PlaceType::NdbDme;
        case NavaidKind::Vor:
        case NavaidKind::DmeOnly:
            break;
    }
    return PlaceType::Vor;
}

bool isTower(const SourceComm& comm) {
    constexpr std::array<std::string_view, 4> kWords = {"TWR", "Twr", "TOWER", "Tower"};
    return std::ranges::any_of(
        kWords, [&](std::string_view word) { return comm.type.find(word) != std::string::npos; });
}

std::int32_t flagsOf(const SourceAirport& airport) {
    const auto& runways = airport.runways;
    const auto any = [&](bool SourceRunway::*has) {
        return std::any_of(runways.begin(), runways.end(),
                           [has](const SourceRunway& runway) { return runway.*has; });
    };
    std::uint32_t flags = 0;
    const auto set = [&flags](AirportFlag flag, bool on) { flags |= on ? flag : 0U; };
    set(kAirportTower, std::any_of(airport.comms.begin(), airport.comms.end(), isTower));
    set(kAirportSeaplaneBase, airport.kind == AirportKind::Seaplane);
    set(kAirportHeliport, airport.kind == AirportKind::Heliport);
    set(kAirportHardSurface, any(&SourceRunway::hard));
    set(kAirportLighted, any(&SourceRunway::lighted));
    set(kAirportBeacon, airport.hasBeacon);
    set(kAirportPrivate, airport.isPrivate);
    return static_cast<std::int32_t>(flags);
}

/// Degrees 1 to 360, or kNoInteger when the true heading or the variation is unknown.
std::int32_t magneticHeading(const SourceRunway& runway, std::size_t end,
                             const std::optional<double>& variation) {
    const auto& here = runway.ends.at(end);
    const auto& there = runway.ends.at(1 - end);
    std::optional<double> headingTrue = here.headingTrue;
    if (here.position && there.position)
        headingTrue = TrueCourseDeg(toGeoPoint(*here.position), toGeoPoint(*there.position));
    if (!headingTrue || !variation)
        return kNoInteger;
    const int degrees = RoundToInt(magneticOf(*headingTrue, *variation));
    return degrees == 0 ? 360 : degrees;
}

class Compilation {
 public:
    Compilation(const AviationData& data, ImportLog& log) : data_(data), log_(log) {}

    std::string file(NavdbHeader header) {
        addIdentsInOrder();
        for (const SourceAirport& airport : data_.airports)
            addAirport(airport);
        for (const SourceNavaid& navaid : data_.navaids)
            addNavaid(navaid);
        for (const SourceFix& fix : data_.fixes)
            addFix(fix);
        addAirways();
        addNames();
        addIndexes();
        header.southernDeg = southernDeg_;
        header.northernDeg = northernDeg_;
        return writer_.finish(header);
    }

 private:
    /// A search in an identifier index compares texts that then stand side by side.
    void addIdentsInOrder() {
        std::vector<std::string_view> idents;
        for (const SourceAirport& airport : data_.airports)
            idents.emplace_back(airport.ident);
        for (const SourceNavaid& navaid : data_.navaids)
            idents.emplace_back(navaid.ident);
        for (const SourceFix& fix : data_.fixes)
            idents.emplace_back(fix.ident);
        for (const auto& [name, segments] : data_.airways.airways())
            idents.emplace_back(name);
        std::sort(idents.begin(), idents.end());
        for (const std::string_view ident : idents)
            writer_.addText(ident);
    }

    void begin(NavdbRows& rows, std::string_view ident, const GeoDegrees& position) {
        if (!anyPlace_)
            southernDeg_ = northernDeg_ = position.lat;
        anyPlace_ = true;
        southernDeg_ = std::min(southernDeg_, position.lat);
        northernDeg_ = std::max(northernDeg_, position.lat);
        rows.begin(ident, position.lat, position.lon);
        rows.text(writer_.addText(ident));
        rows.degrees(position.lat);
        rows.degrees(position.lon);
    }

    void addAirport(const SourceAirport& airport) {
        const bool land = airport.kind == AirportKind::Land;
        NavdbRows& rows = land ? airports_ : otherAirports_;
        begin(rows, airport.ident, airport.position);
        rows.text(writer_.addText(airport.ident));
        rows.fixed16(airport.variation.value_or(kNoAngle));
        rows.integer(airport.elevationFt.value_or(kNoInteger));
        rows.text(writer_.addText(airport.name));
        rows.text(writer_.addText(airport.info));
        rows.integer(flagsOf(airport));
        std::int32_t number = 0;
        for (const SourceRunway& runway : airport.runways)
            addRunway(airport, runway, ++number);
        for (const SourceComm& comm : airport.comms) {
            comms_.begin(airport.ident);
            comms_.text(writer_.addText(airport.ident));
            comms_.text(writer_.addText(comm.type));
            comms_.tenThousandths(comm.freqMhz);
        }
        log_.took(land                                    ? "airports"
                  : airport.kind == AirportKind::Heliport ? "heliports"
                                                          : "seaplane bases");
        log_.took("runways and helipads", airport.runways.size());
        log_.took("frequencies", airport.comms.size());
    }

    void addRunway(const SourceAirport& airport, const SourceRunway& runway, std::int32_t number) {
        NavdbRows& rows = airport.kind == AirportKind::Land ? runways_ : otherRunways_;
        for (std::size_t end = 0; end < 2; ++end) {
            const SourceRunwayEnd& here = runway.ends.at(end);
            if (here.id.empty())
                continue;
            rows.begin(airport.ident);
            rows.text(writer_.addText(airport.ident));
            rows.integer(number);
            rows.integer(runway.lengthFt.value_or(kNoInteger));
            rows.integer(runway.widthFt.value_or(kNoInteger));
            rows.text(writer_.addText(runway.surface));
            rows.text(writer_.addText(runway.info));
            rows.text(writer_.addText(here.id));
            rows.integer(magneticHeading(runway, end, airport.variation));
            rows.degreesOrNone(here.position ? std::optional(here.position->lat) : std::nullopt);
            rows.degreesOrNone(here.position ? std::optional(here.position->lon) : std::nullopt);
            rows.integer(here.elevationFt.value_or(kNoInteger));
            rows.integer(0);  // no source tells the traffic pattern
        }
    }

    void addNavaid(const SourceNavaid& navaid) {
        begin(navaids_, navaid.ident, navaid.position);
        const PlaceType type = placeType(navaid.kind);
        navaids_.integer(typeWord(type, navaid.usage));
        navaids_.tenThousandths(navaid.frequency);
        navaids_.text(writer_.addText(navaid.name));
        log_.took(type >= PlaceType::Ndb ? "NDBs" : "VORs");
    }

    void addFix(const SourceFix& fix) {
        begin(fixes_, fix.ident, fix.position);
        fixes_.integer(typeWord(PlaceType::Fix, fix.usage.value_or(kUsageLow)));
        log_.took("fixes");
    }

    void addAirways() {
        const auto points = data_.airways.points();
        for (const auto& [name, segments] : data_.airways.airways()) {
            for (const AirwayChain& chain : chainSegments(segments, points)) {
                std::vector<std::string_view> idents;
                idents.reserve(chain.size());
                for (const auto point : chain)
                    idents.emplace_back(points[point].ident);
                for (const std::string& route : routeTexts(idents, kLongestRoute)) {
                    airways_.begin(name);
                    airways_.text(writer_.addText(name));
                    airways_.text(writer_.addText(route));
                }
            }
            log_.took("airways");
        }
        log_.took("airway pieces", airways_.count());
    }

    void addNames() {
        addWordsInOrder();
        for (const SourceAirport& airport : data_.airports) {
            addName(airport, kAirportKind, airport.name, {});
            for (const std::string& town : airport.towns)
                addName(airport, kAirportKind, town, town);
        }
        for (const SourceNavaid& navaid : data_.navaids) {
            const bool isNdb = placeType(navaid.kind) >= PlaceType::Ndb;
            addName(navaid, isNdb ? kNdbKind : kVorKind, navaid.name, {});
        }
    }

    /// Searched like identifiers.
    void addWordsInOrder() {
        std::vector<std::string> words;
        const auto add = [&words](std::string_view name) {
            std::ranges::move(nameWords(name), std::back_inserter(words));
        };
        for (const SourceAirport& airport : data_.airports) {
            add(airport.name);
            std::ranges::for_each(airport.towns, add);
        }
        for (const SourceNavaid& navaid : data_.navaids)
            add(navaid.name);
        std::ranges::sort(words);
        for (const std::string& word : words)
            writer_.addText(word);
    }

    template <class SourcePlace>
    void addName(const SourcePlace& place, KindMask kind, std::string_view name,
                 std::string_view town) {
        for (const std::string& word : nameWords(name)) {
            names_.begin(word, place.position.lat, place.position.lon);
            names_.text(writer_.addText(word));
            names_.degrees(place.position.lat);
            names_.degrees(place.position.lon);
            names_.text(writer_.addText(place.ident));
            names_.integer(static_cast<std::int32_t>(kind));
            names_.text(writer_.addText(town));
        }
    }

    void addPlaces(std::string_view table, const NavdbRows& rows, std::string_view byIdent,
                   std::string_view byPlace) {
        const auto number = writer_.addTable(table, rows.fields());
        writer_.addIndex(byIdent, number, rows.inTextOrder());
        writer_.addIndex(byPlace, number, rows.inPlaceOrder());
    }

    void addSorted(std::string_view table, const NavdbRows& rows, std::string_view index) {
        writer_.addIndex(index, writer_.addTable(table, rows.fields()), rows.inTextOrder());
    }

    void addIndexes() {
        addPlaces("_APT", airports_, "AptKey", "ApNKey");
        addPlaces("_AP2", otherAirports_, "Ap2Key", "A2NKey");
        addPlaces("_NAV", navaids_, "NavKey", "NvNKey");
        addPlaces("_WPT", fixes_, "WptKey", "WpNKey");
        addSorted("_AWY", airways_, "Airway");
        addSorted("Runway", runways_, "RwyKey");
        addSorted("Rwy2", otherRunways_, "Rw2Key");
        addSorted("Comm", comms_, "ComKey");
        addSorted("_NAM", names_, "NamKey");

        NavdbRows cells{kCellFields};
        const auto land = airports_.cellStarts();
        const auto other = otherAirports_.cellStarts();
        const auto navaids = navaids_.cellStarts();
        const auto fixes = fixes_.cellStarts();
        for (std::size_t cell = 0; cell < land.size(); ++cell) {
            cells.begin({});
            for (const auto* const starts : {&land, &other, &navaids, &fixes})
                cells.integer((*starts)[cell]);
        }
        writer_.addIndex("CellRun", writer_.addTable("_CELL", cells.fields()), cells.bytes());
        writer_.addGridOver("CellRun");
    }

    const AviationData& data_;
    ImportLog& log_;
    NavdbWriter writer_;
    NavdbRows airports_{kAirportFields};
    NavdbRows otherAirports_{kAirportFields};
    NavdbRows navaids_{kNavaidFields};
    NavdbRows fixes_{kFixFields};
    NavdbRows airways_{kAirwayFields};
    NavdbRows runways_{kRunwayEndFields};
    NavdbRows otherRunways_{kRunwayEndFields};
    NavdbRows comms_{kCommFields};
    NavdbRows names_{kNameFields};
    bool anyPlace_ = false;
    double southernDeg_ = 0.0;
    double northernDeg_ = 0.0;
};

}  // namespace

std::string compileNavdb(const AviationData& data, NavdbHeader header, ImportLog& log) {
    return Compilation(data, log).file(header);
}

}  // namespace korvel
