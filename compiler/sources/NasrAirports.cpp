#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

#include "base/AsciiText.h"
#include "compiler/sources/AirportRules.h"
#include "compiler/sources/CsvValues.h"
#include "compiler/sources/Fields.h"
#include "compiler/sources/NasrImport.h"

namespace korvel {

namespace {

/// What light aircraft talk on and listen to; the tables have the military's band as well.
constexpr double kLowestMhz = 108.0;
constexpr double kHighestMhz = 137.0;

std::string siteOf(const CsvTable& row) {
    // An airport and a heliport may share a number.
    return std::string(row["SITE_NO"]).append("|").append(row["SITE_TYPE_CODE"]);
}

std::string runwayKey(const CsvTable& row) { return siteOf(row).append("|").append(row["RWY_ID"]); }

AirportKind kindOf(std::string_view siteType) {
    if (siteType == "H")
        return AirportKind::Heliport;
    return siteType == "C" ? AirportKind::Seaplane : AirportKind::Land;
}

/// A variation of which the side is in a field of its own.
std::optional<double> variationOf(std::string_view degrees, std::string_view side) {
    const auto variation = variationDeg(degrees);
    if (!variation || (side != "E" && side != "W"))
        return std::nullopt;
    return side == "W" ? -*variation : *variation;
}

struct UseWord {
    std::string_view begins;
    std::string_view service;
};

constexpr std::array kUses{UseWord{"LCL", "TWR"},     UseWord{"GND", "GND"},
                           UseWord{"CD", "CLNC DEL"}, UseWord{"CLNC", "CLNC DEL"},
                           UseWord{"APCH", "APP"},    UseWord{"DEP", "DEP"},
                           UseWord{"D-ATIS", "ATIS"}, UseWord{"ATIS", "ATIS"}};

/// "LCL/P" is the tower; words that are not here say it themselves ("CTAF", "UNICOM").
std::string_view serviceOf(std::string_view use) {
    const auto* const known = std::find_if(kUses.begin(), kUses.end(), [&](const UseWord& word) {
        return use.starts_with(word.begins);
    });
    return known == kUses.end() ? use : known->service;
}

}  // namespace

std::string NasrImport::importAirports(CsvTable table) {
    constexpr std::array<std::string_view, 7> kColumns{"EFF_DATE",    "SITE_NO",   "SITE_TYPE_CODE",
                                                       "ARPT_ID",     "ARPT_NAME", "LAT_DECIMAL",
                                                       "LONG_DECIMAL"};
    return eachRow(table, kColumns, [&] { takeAirport(table); });
}

void NasrImport::takeAirport(CsvTable& row) {
    noteCycle(row);
    const std::string name = toAsciiText(row["ARPT_NAME"]);
    if (row["ARPT_STATUS"].starts_with("C") || saysClosed(name)) {
        log_.leftOut("closed airports");
        return;
    }
    if (row["SITE_TYPE_CODE"] == "B") {
        log_.leftOut("balloon ports");
        return;
    }
    const auto where = positionOf(row["LAT_DECIMAL"], row["LONG_DECIMAL"]);
    const auto ident = isIdentifier(row["ICAO_ID"]) ? row["ICAO_ID"] : row["ARPT_ID"];
    if (!where || !isIdentifier(ident)) {
        row.malformed("airport without position or usable identifier");
        return;
    }
    SourceAirport airport;
    airport.ident = ident;
    nameAirport(airport, name, toAsciiText(row["CITY"]));
    airport.kind = kindOf(row["SITE_TYPE_CODE"]);
    airport.isPrivate = row["FACILITY_USE_CODE"] == "PR";
    airport.hasBeacon = !row["BCN_LENS_COLOR"].empty() && row["BCN_LENS_COLOR"] != "N";
    airport.position = *where;
    airport.elevationFt = wholeFeet(row["ELEV"]);
    airport.variation = variationOf(row["MAG_VARN"], row["MAG_HEMIS"]);
    bySite_.emplace(siteOf(row), data_.airports.size());
    byIdent_.emplace(row["ARPT_ID"], data_.airports.size());
    data_.airports.push_back(std::move(airport));
}

SourceAirport* NasrImport::airportAt(const std::unordered_map<std::string, std::size_t>& index,
                                     const std::string& key) {
    const auto found = index.find(key);
    if (found != index.end())
        return &data_.airports[found->second];
    log_.leftOut("runways and frequencies of airports left out");
    return nullptr;
}

std::string NasrImport::importRunways(CsvTable table) {
    constexpr std::array<std::string_view, 5> kColumns{"EFF_DATE", "SITE_NO", "RWY_ID", "RWY_LEN",
                                                       "RWY_WIDTH"};
    return eachRow(table, kColumns, [&] { takeRunway(table); });
}

void NasrImport::takeRunway(CsvTable& row) {
    noteCycle(row);
    SourceAirport* const airport = airportAt(bySite_, siteOf(row));
    if (airport == nullptr)
        return;
    const auto designators = row["RWY_ID"];
    const auto slash = std::min(designators.find('/'), designators.size());
    SourceRunway runway;
    runway.ends[0].id = toAsciiText(designators.substr(0, slash));
    runway.ends[1].id = toAsciiText(designators.substr(std::min(slash + 1, designators.size())));
    if (runway.ends[0].id.empty()) {
        row.malformed("runway without designator");
        return;
    }
    if (runway.ends[1].id.empty() && airport->kind != AirportKind::Heliport) {
        log_.leftOut("helipads of airports with runways");
        return;
    }
    runway.lengthFt = positiveFeet(row["RWY_LEN"]);
    runway.widthFt = positiveFeet(row["RWY_WIDTH"]);
    runway.lighted = !row["RWY_LGT_CODE"].empty() && row["RWY_LGT_CODE"] != "NONE";
    setSurface(row["SURFACE_TYPE_CODE"], runway);
    orderEnds(runway);
    runways_.emplace(runwayKey(row), std::pair(bySite_.at(siteOf(row)), airport->runways.size()));
    airport->runways.push_back(std::move(runway));
}

std::string NasrImport::importRunwayEnds(CsvTable table) {
    constexpr std::array<std::string_view, 6> kColumns{"EFF_DATE",   "SITE_NO",     "RWY_ID",
                                                       "RWY_END_ID", "LAT_DECIMAL", "LONG_DECIMAL"};
    return eachRow(table, kColumns, [&] { takeRunwayEnd(table); });
}

void NasrImport::takeRunwayEnd(CsvTable& row) {
    noteCycle(row);
    const auto found = runways_.find(runwayKey(row));
    if (found == runways_.end()) {
        log_.leftOut("ends of runways left out");
        return;
    }
    SourceRunway& runway = data_.airports[found->second.first].runways[found->second.second];
    const std::string id = toAsciiText(row["RWY_END_ID"]);
    const bool isSecond = id == runway.ends[1].id;
    if (id.empty() || (!isSecond && id != runway.ends[0].id)) {
        row.malformed("the runway has no such end");
        return;
    }
    SourceRunwayEnd& end = runway.ends.at(isSecond ? 1 : 0);
    end.position = positionOf(row["LAT_DECIMAL"], row["LONG_DECIMAL"]);
    end.elevationFt = wholeFeet(row["RWY_END_ELEV"]);
    if (const auto heading = wholeDouble(row["TRUE_ALIGNMENT"]);
        heading && std::abs(*heading) <= 360.0)
        end.headingTrue = heading;
    noteDisplaced(runway, isSecond ? 1 : 0, positiveFeet(row["DISPLACED_THR_LEN"]));
}

std::string NasrImport::importFrequencies(CsvTable table) {
    constexpr std::array<std::string_view, 4> kColumns{"EFF_DATE", "SERVICED_FACILITY", "FREQ",
                                                       "FREQ_USE"};
    return eachRow(table, kColumns, [&] { takeFrequency(table); });
}

void NasrImport::takeFrequency(CsvTable& row) {
    noteCycle(row);
    SourceAirport* const airport = airportAt(byIdent_, std::string(row["SERVICED_FACILITY"]));
    if (airport == nullptr)
        return;
    // A sector or a remark may stand behind the figure.
    const auto text = row["FREQ"];
    const auto mhz = wholeDouble(text.substr(0, text.find_first_not_of("0123456789.")));
    if (!mhz) {
        row.malformed("frequency missing or not a number");
        return;
    }
    if (*mhz < kLowestMhz || *mhz > kHighestMhz) {
        log_.leftOut("frequencies of other bands");
        return;
    }
    const auto service = serviceOf(row["FREQ_USE"]);
    const bool isApproach = service == "APP" || service == "DEP";
    const auto caller = row[isApproach ? "PRIMARY_APPROACH_RADIO_CALL" : "TOWER_OR_COMM_CALL"];
    airport->comms.push_back({commType(caller, service), *mhz});
}

}  // namespace korvel
