#include "navdb/search/PlaceRows.h"

#include <string>

#include "geo/Geodesy.h"
#include "navdb/file/DatabaseTables.h"
#include "navdb/records/AirportRecord.h"
#include "navdb/records/FixRecord.h"
#include "navdb/records/NavaidRecord.h"

namespace korvel {
namespace {

constexpr unsigned kTypeMask = 0x0F;
constexpr unsigned kUsageMask = 0xF0;

std::uint8_t usageOfRow(const RowReader& row, const PlaceFields& fields) {
    return static_cast<std::uint8_t>(static_cast<unsigned>(row.word(fields.type).value_or(0)) &
                                     kUsageMask);
}

std::unique_ptr<DatabaseRecord> buildAirport(RowReader& row, const TableEntry& table,
                                             const PlaceFields& fields, char region) {
    auto airport = std::make_unique<AirportRecord>();
    std::string text;
    row.text(table.field(packName("ARPT_ID")), airport->arptId);
    row.text(table.field(packName("INFO")), airport->info);
    row.text(table.field(packName("NAME")), text);
    airport->SetName(text);
    airport->magVariationDeg =
        static_cast<float>(row.number(table.field(packName("MAG_VAR"))).value_or(kNoAngle));
    airport->elevationFt = row.word(table.field(packName("ELEV"))).value_or(kNoElevationFt);
    airport->flags = static_cast<std::uint32_t>(row.word(fields.flags).value_or(0));
    airport->region = region;
    return airport;
}

std::unique_ptr<DatabaseRecord> buildNavaid(RowReader& row, const TableEntry& table,
                                            const PlaceFields& fields,
                                            std::unique_ptr<NavaidRecord> navaid) {
    std::string text;
    row.text(table.field(packName("NAME")), text);
    navaid->SetName(text);
    navaid->frequency = static_cast<float>(row.number(table.field(packName("FREQ"))).value_or(0.0));
    navaid->usage = usageOfRow(row, fields);
    return navaid;
}

std::unique_ptr<DatabaseRecord> buildOfKind(RowReader& row, const TableEntry& table,
                                            const PlaceFields& fields, char region) {
    switch (kindOfRow(row, fields)) {
        case kAirportKind:
            return buildAirport(row, table, fields, region);
        case kVorKind:
            return buildNavaid(row, table, fields, std::make_unique<VorRecord>());
        case kNdbKind:
            return buildNavaid(row, table, fields, std::make_unique<NdbRecord>());
        case kFixKind: {
            auto fix = std::make_unique<FixRecord>();
            fix->usage = usageOfRow(row, fields);
            return fix;
        }
        default:
            return nullptr;
    }
}

}  // namespace

PlaceFields::PlaceFields(const TableEntry& table)
    : ident(table.field(packName("ID"))),
      lat(table.field(packName("LAT"))),
      lon(table.field(packName("LON"))),
      type(table.field(packName("TYPE"))),
      flags(table.field(packName("FLAGS"))) {}

KindMask kindOfRow(const RowReader& row, const PlaceFields& fields) {
    const auto type = row.word(fields.type);
    if (!type)
        return kAirportKind;
    switch (static_cast<PlaceType>(static_cast<unsigned>(*type) & kTypeMask)) {
        case PlaceType::Vor:
        case PlaceType::VorDme:
        case PlaceType::Vortac:
            return kVorKind;
        case PlaceType::Ndb:
        case PlaceType::NdbDme:
            return kNdbKind;
        case PlaceType::Fix:
            return kFixKind;
        default:
            return 0;
    }
}

GeoPoint positionOfRow(const RowReader& row, const PlaceFields& fields) {
    const auto lat = row.number(fields.lat);
    const auto lon = row.number(fields.lon);
    return lat && lon ? GeoPoint{.lat = *lat * kDegToRad, .lon = *lon * kDegToRad} : GeoPoint{};
}

std::unique_ptr<DatabaseRecord> buildRecord(RowReader& row, const TableEntry& table,
                                            const DatabaseFile& file, const RowMatch& match) {
    const PlaceFields fields(table);
    auto record = buildOfKind(row, table, fields, file.regionLetter());
    if (record) {
        std::string ident;
        row.text(fields.ident, ident);
        record->ident.assign(ident);
        record->key = makeRecordKey(record->GetKind(), record->ident.view());
        record->position = positionOfRow(row, fields);
        record->expired = file.isExpired();
        record->pastDate = file.isPastDate();
        record->origin = {.match = match, .fileName = file.fileName()};
    }
    return record;
}

Place buildUnnamedPlace(const RowReader& row, const PlaceFields& fields, const DatabaseFile& file,
                        const RowMatch& match) {
    Place place{.position = positionOfRow(row, fields),
                .kind = kindOfRow(row, fields),
                .pastDate = file.isPastDate(),
                .match = match};
    place.flags = place.kind == kAirportKind
                      ? static_cast<std::uint32_t>(row.word(fields.flags).value_or(0))
                      : usageOfRow(row, fields);
    return place;
}

void readIdent(RowReader& row, const PlaceFields& fields, Place& place) {
    std::string ident;
    row.text(fields.ident, ident);
    place.ident.assign(ident);
}

Place buildPlace(RowReader& row, const PlaceFields& fields, const DatabaseFile& file,
                 const RowMatch& match) {
    Place place = buildUnnamedPlace(row, fields, file, match);
    readIdent(row, fields, place);
    return place;
}

}  // namespace korvel
