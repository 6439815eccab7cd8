#include "compiler/sources/OurAirportsImport.h"

#include <array>
#include <cmath>
#include <cstddef>
#include <optional>
#include <span>
#include <utility>

#include "base/Ascii.h"
#include "base/AsciiText.h"
#include "compiler/sources/AirportIdents.h"
#include "compiler/sources/AirportRules.h"
#include "compiler/sources/CsvValues.h"
#include "geo/Geodesy.h"
#include "geo/MagneticModel.h"

namespace korvel {

namespace {

/// Half-way through the magnetic model's years, so that a database is the same whenever it is
/// compiled; over most of the Earth the variation is then within half a degree in all of them.
constexpr double kVariationYear = (kMagneticModelBegins + kMagneticModelEnds) / 2.0;

SourceRunwayEnd endOf(const CsvTable& row, std::string_view prefix) {
    const auto field = [&](std::string_view name) { return row[std::string(prefix).append(name)]; };
    SourceRunwayEnd end;
    end.id = toAsciiText(field("_ident"));
    end.position = positionOf(field("_latitude_deg"), field("_longitude_deg"));
    if (const auto heading = wholeDouble(field("_heading_degT"));
        heading && std::abs(*heading) <= 360.0)
        end.headingTrue = heading;
    end.elevationFt = wholeFeet(field("_elevation_ft"));
    return end;
}

std::optional<NavaidKind> navaidKind(std::string_view type) {
    if (type == "VOR")
        return NavaidKind::Vor;
    if (type == "VOR-DME")
        return NavaidKind::VorDme;
    if (type == "VORTAC")
        return NavaidKind::Vortac;
    if (type == "NDB")
        return NavaidKind::Ndb;
    if (type == "NDB-DME")
        return NavaidKind::NdbDme;
    if (type == "DME" || type == "TACAN")
        return NavaidKind::DmeOnly;
    return std::nullopt;
}

Usage usageOf(std::string_view usage, std::string_view power) {
    if (usage == "TERMINAL")
        return kUsageTerminal;
    if (usage == "LO")
        return kUsageLow;
    if (usage == "HI")
        return kUsageHigh;
    if (usage == "BOTH")
        return kUsageBoth;
    return power == "HIGH" ? kUsageBoth : kUsageLow;
}

}  // namespace

std::string OurAirportsImport::importAirports(CsvTable table) {
    constexpr std::array<std::string_view, 5> kColumns{"ident", "type", "name", "latitude_deg",
                                                       "longitude_deg"};
    AirportIdents idents;
    const std::size_t first = data_.airports.size();  // before it those of other sources
    auto refused = eachRow(table, kColumns, [&] { takeAirport(table, idents); });
    const std::span own = std::span(data_.airports).subspan(first);
    idents.settle(own, log_);
    for (SourceAirport& airport : own)
        airport.isPrivate = isPrivateIdentifier(airport.ident, airport.position);
    return refused;
}

void OurAirportsImport::takeAirport(CsvTable& row, AirportIdents& idents) {
    const auto type = row["type"];
    const std::string name = toAsciiText(row["name"]);
    if (type == "closed" || saysClosed(name)) {
        log_.leftOut("closed airports");
        return;
    }
    if (type == "balloonport") {
        log_.leftOut("balloon ports");
        return;
    }
    const auto where = positionOf(row["latitude_deg"], row["longitude_deg"]);
    if (!where || !isIdentifier(row["ident"])) {
        row.malformed("airport without position or usable identifier");
        return;
    }
    SourceAirport airport;
    airport.kind = type == "heliport"        ? AirportKind::Heliport
                   : type == "seaplane_base" ? AirportKind::Seaplane
                                             : AirportKind::Land;
    airport.position = *where;
    // The tables give none, and many of their stations have kept that of the day they were aligned.
    airport.variation = modelVariationDeg(toGeoPoint(*where), kVariationYear);
    airport.elevationFt = wholeFeet(row["elevation_ft"]);
    nameAirport(airport, name, toAsciiText(row["municipality"]));
    airports_.emplace(row["ident"], data_.airports.size());
    idents.add(row);
    data_.airports.push_back(std::move(airport));
}

SourceAirport* OurAirportsImport::airportOf(const CsvTable& row) {
    const auto found = airports_.find(std::string(row["airport_ident"]));
    return found == airports_.end() ? nullptr : &data_.airports[found->second];
}

std::string OurAirportsImport::importRunways(CsvTable table) {
    constexpr std::array<std::string_view, 4> kColumns{"airport_ident", "length_ft", "width_ft",
                                                       "le_ident"};
    return eachRow(table, kColumns, [&] { takeRunway(table); });
}

void OurAirportsImport::takeRunway(CsvTable& row) {
    SourceAirport* const airport = airportOf(row);
    if (airport == nullptr) {
        log_.leftOut("runways and frequencies of airports left out");
        return;
    }
    if (row["closed"] == "1") {
        log_.leftOut("closed runways");
        return;
    }
    SourceRunway runway;
    runway.ends = {endOf(row, "le"), endOf(row, "he")};
    const auto& [low, high] = runway.ends;
    if (low.id.empty()) {
        row.malformed("runway without designator");
        return;
    }
    if (high.id.empty() && airport->kind != AirportKind::Heliport) {
        log_.leftOut("helipads of airports with runways");
        return;
    }
    runway.widthFt = positiveFeet(row["width_ft"]);
    runway.lengthFt = positiveFeet(row["length_ft"]);
    if (!runway.lengthFt && low.position && high.position)
        runway.lengthFt = lengthBetweenFt(*low.position, *high.position);
    runway.lighted = row["lighted"] == "1";
    setSurface(row["surface"], runway);
    noteDisplaced(runway, 0, positiveFeet(row["le_displaced_threshold_ft"]));
    noteDisplaced(runway, 1, positiveFeet(row["he_displaced_threshold_ft"]));
    orderEnds(runway);
    airport->runways.push_back(std::move(runway));
}

std::string OurAirportsImport::importFrequencies(CsvTable table) {
    constexpr std::array<std::string_view, 3> kColumns{"airport_ident", "type", "frequency_mhz"};
    return eachRow(table, kColumns, [&] { takeFrequency(table); });
}

void OurAirportsImport::takeFrequency(CsvTable& row) {
    SourceAirport* const airport = airportOf(row);
    if (airport == nullptr) {
        log_.leftOut("runways and frequencies of airports left out");
        return;
    }
    const auto mhz = wholeDouble(row["frequency_mhz"]);
    if (!mhz || *mhz < 1.0 || *mhz > 400.0) {
        row.malformed("frequency missing or out of range");
        return;
    }
    airport->comms.push_back({commType(row["description"], row["type"]), *mhz});
}

std::string OurAirportsImport::importNavaids(CsvTable table) {
    constexpr std::array<std::string_view, 6> kColumns{
        "ident", "name", "type", "frequency_khz", "latitude_deg", "longitude_deg"};
    return eachRow(table, kColumns, [&] { takeNavaid(table); });
}

void OurAirportsImport::takeNavaid(CsvTable& row) {
    const auto kind = navaidKind(row["type"]);
    const auto where = positionOf(row["latitude_deg"], row["longitude_deg"]);
    const auto khz = wholeDouble(row["frequency_khz"]);
    if (!kind || !where || !khz || !isIdentifier(row["ident"])) {
        row.malformed("navaid without type, position, frequency or identifier");
        return;
    }
    SourceNavaid navaid;
    navaid.kind = *kind;
    navaid.ident = row["ident"];
    navaid.name = toAsciiText(row["name"]);
    navaid.position = *where;
    const bool ndb = *kind == NavaidKind::Ndb || *kind == NavaidKind::NdbDme;
    navaid.frequency = ndb ? *khz : *khz / 1000.0;
    const bool inBand = ndb ? *khz >= 100.0 && *khz < 2000.0
                            : navaid.frequency >= 108.0 && navaid.frequency < 118.0;
    if (!inBand && *kind != NavaidKind::DmeOnly) {
        row.malformed("frequency out of range");
        return;
    }
    navaid.usage = usageOf(row["usageType"], row["power"]);
    // What the station is aligned to; the variation of its place where that is not given.
    navaid.variation = variationDeg(row["slaved_variation_deg"]);
    if (!navaid.variation)
        navaid.variation = variationDeg(row["magnetic_variation_deg"]);
    data_.navaids.push_back(std::move(navaid));
}

}  // namespace korvel
