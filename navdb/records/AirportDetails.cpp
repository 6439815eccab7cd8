#include "navdb/records/AirportDetails.h"

#include <optional>
#include <string_view>

#include "geo/Geodesy.h"
#include "navdb/file/DatabaseFile.h"
#include "navdb/file/DatabaseTables.h"
#include "navdb/records/AirportRecord.h"

namespace korvel {
namespace {

/// Makes each of the airport's rows in a sub-table the current one in turn.
template <class Visit>
void visitRows(const DatabaseFile& file, std::string_view indexName, const AirportRecord& airport,
               Visit&& visit) {
    const IndexEntry* const index = file.index(indexName);
    const FieldEntry* const order = index != nullptr ? orderingField(*index) : nullptr;
    if (order == nullptr || airport.arptId.empty())
        return;
    const auto rows = file.rows();
    std::uint32_t row = rows->firstNotBelow(*index, *order, airport.arptId);
    while (rows->equals(*index, row, *order, airport.arptId) && rows->load(*index, row)) {
        visit(*rows, *index->table);
        ++row;
    }
}

std::optional<int> known(std::optional<std::int32_t> value) {
    return value && *value != kNoInteger ? std::optional<int>(*value) : std::nullopt;
}

RunwayEnd readEnd(RowReader& row, const TableEntry& table) {
    RunwayEnd end;
    row.text(table.field(packName("ID")), end.id);
    end.magHeadingDeg = known(row.word(table.field(packName("MAG_HDG"))));
    end.elevationFt = known(row.word(table.field(packName("ELEV"))));
    const FieldEntry* const lat = table.field(packName("LAT"));
    const FieldEntry* const lon = table.field(packName("LON"));
    if (known(row.word(lat)) && known(row.word(lon)))
        end.position = {.lat = *row.number(lat) * kDegToRad, .lon = *row.number(lon) * kDegToRad};
    const std::int32_t pattern = row.word(table.field(packName("PATTERN"))).value_or(0);
    end.pattern = pattern == 'L' || pattern == 'R' ? static_cast<char>(pattern) : '\0';
    return end;
}

RunwayRecord readRunway(RowReader& row, const TableEntry& table) {
    RunwayRecord runway;
    runway.lengthFt = known(row.word(table.field(packName("LENGTH"))));
    runway.widthFt = known(row.word(table.field(packName("WIDTH"))));
    row.text(table.field(packName("SURFACE")), runway.surface);
    row.text(table.field(packName("INFO")), runway.info);
    return runway;
}

void readRunways(const DatabaseFile& file, std::string_view index, AirportRecord& airport) {
    std::optional<std::int32_t> number;
    visitRows(file, index, airport, [&](RowReader& row, const TableEntry& table) {
        const auto rowNumber = row.word(table.field(packName("RWY")));
        const bool isOtherEnd = !airport.runways.empty() && rowNumber == number &&
                                airport.runways.back().ends.size() == 1;
        if (!isOtherEnd)
            airport.runways.push_back(readRunway(row, table));
        airport.runways.back().ends.push_back(readEnd(row, table));
        number = rowNumber;
    });
}

}  // namespace

void readAirportDetails(const DatabaseFile& file, AirportRecord& airport) {
    airport.runways.clear();
    airport.comms.clear();
    const TableEntry* const table = file.directory().tableOfRow(airport.origin.match.row);
    const bool isSecondTable = table != nullptr && table->name == packName("_AP2");
    readRunways(file, isSecondTable ? "Rw2Key" : "RwyKey", airport);
    visitRows(file, "ComKey", airport, [&](RowReader& row, const TableEntry& comms) {
        CommFreqRecord comm;
        row.text(comms.field(packName("TYPE")), comm.type);
        comm.freqMhz = row.number(comms.field(packName("FREQ"))).value_or(0.0);
        airport.comms.push_back(std::move(comm));
    });
}

}  // namespace korvel
