#pragma once

#include <map>
#include <set>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>

#include "compiler/sources/AviationData.h"
#include "compiler/sources/CsvTable.h"

namespace korvel {

/// The tables of the United States' aviation authority, which it publishes every 28 days. Those of
/// airports go before runways, these before runway ends, navaids, fixes and gaps before airways.
/// Each reads one freshly opened file, header included; a malformed row is reported and skipped.
/// The results are empty, or why the file is refused.
class NasrImport {
 public:
    NasrImport(ImportLog& log, AviationData& data) : log_(log), data_(data) {}

    [[nodiscard]] std::string importAirports(CsvTable table);     ///< APT_BASE
    [[nodiscard]] std::string importRunways(CsvTable table);      ///< APT_RWY
    [[nodiscard]] std::string importRunwayEnds(CsvTable table);   ///< APT_RWY_END
    [[nodiscard]] std::string importFrequencies(CsvTable table);  ///< FRQ
    [[nodiscard]] std::string importNavaids(CsvTable table);      ///< NAV_BASE
    [[nodiscard]] std::string importFixes(CsvTable table);        ///< FIX_BASE
    [[nodiscard]] std::string importGaps(CsvTable table);         ///< AWY_SEG_ALT
    [[nodiscard]] std::string importAirways(CsvTable table);      ///< AWY_BASE

 private:
    /// Where an identifier stands; several places may bear it.
    using Places = std::multimap<std::string, GeoDegrees, std::less<>>;

    void takeAirport(CsvTable& row);
    void takeRunway(CsvTable& row);
    void takeRunwayEnd(CsvTable& row);
    void takeFrequency(CsvTable& row);
    void takeNavaid(CsvTable& row);
    void takeFix(CsvTable& row);
    void takeAirway(CsvTable& row, const Places& places);
    void takeChain(std::string_view airway, bool high, const std::vector<std::string>& idents,
                   const Places& places);
    /// The cycle in which the row is in force; the earliest of all tables counts.
    void noteCycle(const CsvTable& row);
    [[nodiscard]] Places allPlaces() const;
    SourceAirport* airportAt(const std::unordered_map<std::string, std::size_t>& index,
                             const std::string& key);

    ImportLog& log_;
    AviationData& data_;
    std::string effective_;  ///< the date last looked at, as it is written
    std::unordered_map<std::string, std::size_t> bySite_;
    std::unordered_map<std::string, std::size_t> byIdent_;
    /// Airport and runway, by site and designators.
    std::unordered_map<std::string, std::pair<std::size_t, std::size_t>> runways_;
    /// Airway, its area, and the two points between which it is interrupted.
    std::set<std::string, std::less<>> gaps_;
};

}  // namespace korvel
