#include "cockpit/NearAirports.h"

#include <algorithm>
#include <array>
#include <memory>
#include <string_view>

#include "base/Ascii.h"
#include "base/TextNumbers.h"
#include "cockpit/CockpitData.h"
#include "cockpit/PlaceClass.h"
#include "cockpit/PlaceDetails.h"
#include "config/Text.h"
#include "config/texts/AircraftTexts.h"
#include "geo/GeoText.h"
#include "geo/Geodesy.h"
#include "geo/Variation.h"
#include "nav/aircraft/PlannedTimes.h"
#include "navdb/NavDatabase.h"
#include "navdb/file/DatabaseTables.h"
#include "navdb/records/AirportRecord.h"

namespace korvel {
namespace {

/// Of so many places some are heliports and private strips that are not wanted.
constexpr std::size_t kCandidatesPerAirport = 4;
constexpr std::size_t kMostCandidates = 2000;
/// So many are looked at for those that pass the pilot's filter: each is read.
constexpr std::size_t kMostFiltered = 300;
constexpr int kFrequencyDecimals = 3;

bool isWanted(const Place& place, const NearAirportOptions& options) {
    if (!options.privateAirports && (place.flags & kAirportPrivate) != 0)
        return false;
    switch (classOf(place)) {
        case PlaceClass::Heliport:
            return options.heliports;
        case PlaceClass::SeaplaneBase:
            return options.seaplaneBases;
        default:
            return true;
    }
}

bool passes(const NearAirport& airport, const NearestFilter& filter) {
    const bool isLong =
        filter.fromRunwayFt <= 0 || airport.longestRunwayFt.value_or(0) >= filter.fromRunwayFt;
    return isLong && (airport.hard || !filter.hardOnly);
}

/// The nearest that are wanted; looks among more places while too few of them are.
std::vector<NearPlace> wantedNear(const NavDatabase& database, GeoPoint position,
                                  const NearAirportOptions& options) {
    for (std::size_t candidates = options.count * kCandidatesPerAirport;;
         candidates *= kCandidatesPerAirport) {
        std::vector<NearPlace> places =
            database.nearest(position, kAirportKind, candidates, options.withinNm);
        const bool areAll = places.size() < candidates;
        std::erase_if(places,
                      [&](const NearPlace& near) { return !isWanted(near.place, options); });
        if (areAll || places.size() >= options.count || candidates >= kMostCandidates) {
            places.resize(std::min(places.size(), options.count));
            return places;
        }
    }
}

/// A service as the sources write it, and in short.
struct Service {
    std::string_view word;
    std::string_view label;
};

/// In words such as "Seattle Tower" as well as in "TWR/AFIS".
bool names(const CommFreqRecord& comm, std::string_view word) {
    const std::string type = inCapitals(comm.type);
    for (auto at = type.find(word); at != std::string::npos; at = type.find(word, at + 1))
        if (at == 0 || type[at - 1] < 'A' || type[at - 1] > 'Z')
            return true;
    return false;
}

/// Whom to call first: the tower, where there is none the common frequency, last of all approach.
std::vector<std::string> frequenciesOf(const AirportRecord& airport) {
    static constexpr std::array kOrder{Service{"TWR", "TWR"},       Service{"TOWER", "TWR"},
                                       Service{"CTAF", "CTAF"},     Service{"AFIS", "AFIS"},
                                       Service{"INFO", "INFO"},     Service{"RDO", "RDO"},
                                       Service{"RADIO", "RDO"},     Service{"UNIC", "UNICOM"},
                                       Service{"MULT", "MULTICOM"}, Service{"APP", "APP"}};
    std::vector<std::string> found;
    std::vector<double> told;
    for (const Service& service : kOrder)
        for (const CommFreqRecord& comm : airport.comms) {
            if (comm.freqMhz <= 0 || !names(comm, service.word) ||
                std::ranges::find(told, comm.freqMhz) != told.end())
                continue;
            told.push_back(comm.freqMhz);
            found.push_back(std::string(service.label) + ' ' +
                            formatFixed(comm.freqMhz, kFrequencyDecimals));
        }
    return found;
}

std::string runwayName(const RunwayRecord& runway) {
    std::string name;
    for (const RunwayEnd& end : runway.ends)
        name += (name.empty() ? "" : "/") + end.id;
    return name;
}

}  // namespace

void takeAirport(const AirportRecord& airport, NearAirport& near) {
    near.key = airport.key;
    near.name = airport.GetName();
    near.elevationFt = elevationOf(airport);
    if (const RunwayRecord* longest = longestRunway(airport)) {
        near.longestRunwayFt = longest->lengthFt;
        near.surface = longest->surface;
        near.hard = isHardSurface(longest->surface);
        near.runway = runwayName(*longest);
    }
    near.frequencies = frequenciesOf(airport);
    near.frequency = near.frequencies.empty() ? "" : near.frequencies.front();
}

void findNearAirports(const NavDatabase& database, GeoPoint position, const Variation& variation,
                      const NearAirportOptions& options, std::vector<NearAirport>& airports) {
    airports.clear();
    if (!IsValid(position))
        return;
    NearAirportOptions wider = options;
    if (options.filter.isOn())
        wider.count = std::max(options.count, kMostFiltered);
    for (const auto& [place, distanceNm] : wantedNear(database, position, wider)) {
        if (airports.size() >= options.count)
            return;
        const std::unique_ptr<DatabaseRecord> record = database.recordOf(place);
        auto* airport = dynamic_cast<AirportRecord*>(record.get());
        if (airport == nullptr)
            continue;
        database.loadDetails(*airport);
        NearAirport near;
        near.ident = place.ident.view();
        near.position = place.position;
        near.distanceNm = distanceNm;
        near.bearingMagDeg = variation.TrueToMagnetic(TrueCourseDeg(position, place.position));
        near.expired = place.pastDate;
        takeAirport(*airport, near);
        if (passes(near, options.filter))
            airports.push_back(std::move(near));
    }
}

std::string runwayText(const NearAirport& airport, int altUnit) {
    if (!airport.longestRunwayFt)
        return {};
    std::string words = altitudeText(*airport.longestRunwayFt, altUnit);
    for (const std::string* more : {&airport.runway, &airport.surface})
        if (!more->empty())
            words += "  " + *more;
    return words;
}

std::string filterText(const NearestFilter& filter, int altUnit) {
    std::string words;
    if (filter.fromRunwayFt > 0)
        words = formatText(kAircraftTexts.fromRunway, {altitudeText(filter.fromRunwayFt, altUnit)});
    if (filter.hardOnly)
        words.append(words.empty() ? "" : ", ").append(text(kAircraftTexts.hard));
    return words;
}

std::optional<int> glideArrivalFt(const CockpitData& data, const NearAirport& airport) {
    if (!data.aircraft || !data.position || !data.altitudeFt || !airport.elevationFt)
        return std::nullopt;
    const PlannedLeg way{.courseTrueDeg = TrueCourseDeg(*data.position, airport.position),
                         .nm = DistanceNm(*data.position, airport.position)};
    const auto arrival =
        glideArrivalFt(*data.aircraft, *data.altitudeFt - *airport.elevationFt, way,
                       data.wind ? std::optional(data.wind->wind) : std::nullopt);
    return arrival ? std::optional(RoundToInt(*arrival)) : std::nullopt;
}

std::optional<std::size_t> rowOfSame(std::span<const NearAirport> former, std::size_t row,
                                     std::span<const NearAirport> airports) {
    if (row >= former.size())
        return std::nullopt;
    const NearAirport& sought = former[row];
    const auto found = std::ranges::find_if(airports, [&](const NearAirport& airport) {
        return airport.key == sought.key && airport.position == sought.position;
    });
    return found == airports.end() ? std::nullopt
                                   : std::optional<std::size_t>(found - airports.begin());
}

}  // namespace korvel
