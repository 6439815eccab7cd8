#pragma once

#include <array>
#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>

#include "compiler/sources/AviationData.h"
#include "compiler/sources/CsvTable.h"

namespace korvel {

class AirportIdents;

/// The four tables of the OurAirports project. Airports go first: runways and frequencies are
/// attached to them by identifier. Each reads one freshly opened file, header included; a
/// malformed row is reported and skipped. The results are empty, or why the file is refused.
class OurAirportsImport {
 public:
    OurAirportsImport(ImportLog& log, AviationData& data) : log_(log), data_(data) {}

    [[nodiscard]] std::string importAirports(CsvTable table);
    [[nodiscard]] std::string importRunways(CsvTable table);
    [[nodiscard]] std::string importFrequencies(CsvTable table);
    [[nodiscard]] std::string importNavaids(CsvTable table);

 private:
    void takeAirport(CsvTable& row, AirportIdents& idents);
    void takeRunway(CsvTable& row);
    void takeFrequency(CsvTable& row);
    void takeNavaid(CsvTable& row);
    /// The airport that a row of another table belongs to; null when it was left out.
    SourceAirport* airportOf(const CsvTable& row);

    ImportLog& log_;
    AviationData& data_;
    /// By the tables' own identifier, which need not be the airport's.
    std::unordered_map<std::string, std::size_t> airports_;
};

}  // namespace korvel
