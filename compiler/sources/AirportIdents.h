#pragma once

#include <array>
#include <cstddef>
#include <span>
#include <string>
#include <vector>

#include "compiler/sources/AviationData.h"
#include "compiler/sources/CsvTable.h"

namespace korvel {

/// Settles by which identifier each airport of OurAirports is known. The table has several codes a
/// row, its own key among them, and what is one row's key may be another one's ICAO code. So all
/// rows claim their first choice before any row takes a second one, ICAO codes first; a row whose
/// codes were all taken stands under the table's number.
class AirportIdents {
 public:
    /// Notes the codes of a row; rows come in the order of the airports that are settled.
    void add(const CsvTable& row);
    /// Sets the identifiers. `airports` are those of the rows, one each.
    void settle(std::span<SourceAirport> airports, ImportLog& log) const;

 private:
    /// Kinds of code, the best first: ICAO, the table's own key where it is none of the invented
    /// ones ("US-0571"), the code that receivers use, the country's own, the key as it stands.
    static constexpr std::size_t kKinds = 5;
    struct Row {
        std::array<std::string, kKinds> codes;  ///< empty where there is none
        std::string number;
    };
    std::vector<Row> rows_;
};

}  // namespace korvel
