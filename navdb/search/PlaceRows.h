#pragma once

#include <memory>
#include <optional>

#include "navdb/file/DatabaseFile.h"
#include "navdb/records/DatabaseRecord.h"
#include "navdb/search/Place.h"

namespace korvel {

/// The fields that tell what and where the place of a row is; null where the table lacks one.
struct PlaceFields {
    explicit PlaceFields(const TableEntry& table);

    const FieldEntry* ident;
    const FieldEntry* lat;
    const FieldEntry* lon;
    const FieldEntry* type;
    const FieldEntry* flags;
};

// All of these read the current row.

/// Rows without a type are airports; 0 for a type that no record class stands for.
KindMask kindOfRow(const RowReader& row, const PlaceFields& fields);

/// Not valid when the table has no LAT or LON.
GeoPoint positionOfRow(const RowReader& row, const PlaceFields& fields);

/// Null for a row of no kind. `match` is where the row stands in `file`.
std::unique_ptr<DatabaseRecord> buildRecord(RowReader& row, const TableEntry& table,
                                            const DatabaseFile& file, const RowMatch& match);

/// Without its identifier.
Place buildUnnamedPlace(const RowReader& row, const PlaceFields& fields, const DatabaseFile& file,
                        const RowMatch& match);
void readIdent(RowReader& row, const PlaceFields& fields, Place& place);
Place buildPlace(RowReader& row, const PlaceFields& fields, const DatabaseFile& file,
                 const RowMatch& match);

}  // namespace korvel
