#include <array>
#include <utility>

#include "base/AsciiText.h"
#include "compiler/sources/CsvValues.h"
#include "compiler/sources/Fields.h"
#include "compiler/sources/NasrImport.h"

namespace korvel {

namespace {

std::optional<NavaidKind> kindOf(std::string_view type) {
    constexpr std::array<std::pair<std::string_view, NavaidKind>, 9> kKinds{
        {{"VOR", NavaidKind::Vor},
         {"VOR/DME", NavaidKind::VorDme},
         {"VORTAC", NavaidKind::Vortac},
         {"NDB", NavaidKind::Ndb},
         {"UHF/NDB", NavaidKind::Ndb},
         {"MARINE NDB", NavaidKind::Ndb},
         {"NDB/DME", NavaidKind::NdbDme},
         {"DME", NavaidKind::DmeOnly},
         {"TACAN", NavaidKind::DmeOnly}}};
    for (const auto& [name, kind] : kKinds)
        if (type == name)
            return kind;
    return std::nullopt;
}

/// From the service volume: "H", "L", "T", and the newer ones "VH", "VL", "DH", "DL".
Usage usageOf(std::string_view volume) {
    if (volume == "T")
        return kUsageTerminal;
    return volume.ends_with("H") ? kUsageBoth : kUsageLow;
}

bool isInBand(NavaidKind kind, double frequency) {
    if (kind == NavaidKind::Ndb || kind == NavaidKind::NdbDme)
        return frequency >= 100.0 && frequency < 2000.0;
    return kind == NavaidKind::DmeOnly || (frequency >= 108.0 && frequency < 118.0);
}

/// A date in force ("2026/08/06") as YYYYMMDD.
std::optional<int> dateIn(std::string_view text) {
    std::string digits;
    for (const char c : text)
        if (c != '/' && c != '-')
            digits += c;
    const auto ymd = wholeInt(digits);
    return ymd && isDateYmd(*ymd) ? ymd : std::nullopt;
}

}  // namespace

void NasrImport::noteCycle(const CsvTable& row) {
    const auto text = row["EFF_DATE"];
    if (text == effective_)
        return;
    effective_ = text;
    const auto ymd = dateIn(text);
    const auto cycle = ymd ? AiracCycle::inForceOn(*ymd) : std::nullopt;
    if (cycle && (!data_.cycle || cycle->expiryYmd() < data_.cycle->expiryYmd()))
        data_.cycle = cycle;
}

std::string NasrImport::importNavaids(CsvTable table) {
    constexpr std::array<std::string_view, 6> kColumns{"EFF_DATE", "NAV_ID",      "NAV_TYPE",
                                                       "FREQ",     "LAT_DECIMAL", "LONG_DECIMAL"};
    return eachRow(table, kColumns, [&] { takeNavaid(table); });
}

void NasrImport::takeNavaid(CsvTable& row) {
    noteCycle(row);
    const auto kind = kindOf(row["NAV_TYPE"]);
    if (!kind) {
        log_.leftOut("navaid rows of other kinds");
        return;
    }
    if (!row["NAV_STATUS"].empty() && !row["NAV_STATUS"].starts_with("OPERATIONAL")) {
        log_.leftOut("navaids out of service");
        return;
    }
    const auto where = positionOf(row["LAT_DECIMAL"], row["LONG_DECIMAL"]);
    const auto frequency = wholeDouble(row["FREQ"]);
    const bool needsFrequency = *kind != NavaidKind::DmeOnly;
    if (!where || !isIdentifier(row["NAV_ID"]) || (needsFrequency && !frequency)) {
        row.malformed("navaid without position, frequency or identifier");
        return;
    }
    SourceNavaid navaid;
    navaid.kind = *kind;
    navaid.ident = row["NAV_ID"];
    navaid.name = toAsciiText(row["NAME"]);
    navaid.position = *where;
    navaid.frequency = frequency.value_or(0.0);
    navaid.usage = usageOf(row["ALT_CODE"]);
    if (!isInBand(*kind, navaid.frequency)) {
        row.malformed("frequency out of range");
        return;
    }
    navaid.variation = variationDeg(row["MAG_VARN"]);
    if (navaid.variation && row["MAG_VARN_HEMIS"] == "W")
        navaid.variation = -*navaid.variation;
    data_.navaids.push_back(std::move(navaid));
}

std::string NasrImport::importFixes(CsvTable table) {
    constexpr std::array<std::string_view, 4> kColumns{"EFF_DATE", "FIX_ID", "LAT_DECIMAL",
                                                       "LONG_DECIMAL"};
    return eachRow(table, kColumns, [&] { takeFix(table); });
}

void NasrImport::takeFix(CsvTable& row) {
    noteCycle(row);
    const auto where = positionOf(row["LAT_DECIMAL"], row["LONG_DECIMAL"]);
    if (!where || !isIdentifier(row["FIX_ID"])) {
        row.malformed("fix without position or usable identifier");
        return;
    }
    SourceFix fix{std::string(row["FIX_ID"]), std::string(row["ICAO_REGION_CODE"]), *where, {}};
    if (row["FIX_USE_CODE"] == "VFR")
        fix.usage = kUsageVisual;
    data_.fixes.push_back(std::move(fix));
}

}  // namespace korvel
