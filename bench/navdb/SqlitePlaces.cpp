#include "SqlitePlaces.h"

#include <algorithm>
#include <cmath>
#include <stdexcept>

#include "geo/Geodesy.h"
#include "navdb/file/DatabaseFile.h"
#include "navdb/records/DatabaseRecord.h"
#include "platform/SystemClock.h"

namespace korvel {
namespace {

void check(bool ok, const char* what) {
    if (!ok)
        throw std::runtime_error(what);
}

void bindText(sqlite3_stmt* statement, int column, std::string_view text) {
    sqlite3_bind_text(statement, column, text.data(), static_cast<int>(text.size()),
                      SQLITE_TRANSIENT);
}

void step(sqlite3_stmt* statement) {
    check(sqlite3_step(statement) == SQLITE_DONE, "insert");
    sqlite3_reset(statement);
}

std::string textAt(sqlite3_stmt* statement, int column) {
    const auto* text = sqlite3_column_text(statement, column);
    return {reinterpret_cast<const char*>(text),
            static_cast<std::size_t>(sqlite3_column_bytes(statement, column))};
}

double fieldNumber(const FieldMap& fields, std::string_view name) {
    const auto found = fields.find(name);
    const auto* value =
        found == fields.end() ? nullptr : std::get_if<double>(&found->second.content);
    return value == nullptr ? 0.0 : *value;
}

std::string fieldText(const FieldMap& fields, std::string_view name) {
    const auto found = fields.find(name);
    return found == fields.end() ? std::string() : found->second.print();
}

int kindFrom(const FieldMap& fields) {
    const auto found = fields.find("TYPE");
    if (found == fields.end())
        return static_cast<int>(kAirportKind);
    const int type = std::get<std::int32_t>(found->second.content) & 0x0F;
    return static_cast<int>(type == 5 ? kFixKind : type < 3 ? kVorKind : kNdbKind);
}

constexpr const char* kSchema =
    "CREATE TABLE place(id INTEGER PRIMARY KEY, ident TEXT, kind INT, lat REAL, lon REAL, name "
    "TEXT,"
    " frequency REAL);"
    "CREATE VIRTUAL TABLE location USING rtree(id, south, north, west, east);"
    "CREATE TABLE airway(id TEXT, route TEXT); BEGIN;";

}  // namespace

void SqlitePlaces::build(const std::filesystem::path& path, const std::filesystem::path& source) {
    std::filesystem::remove(path);
    SqlitePlaces sqlite(path);
    auto* const db = sqlite.database_.get();
    check(sqlite3_exec(db, kSchema, nullptr, nullptr, nullptr) == SQLITE_OK, "schema");
    auto place = sqlite.prepare("INSERT INTO place VALUES(?,?,?,?,?,?,?)");
    auto location = sqlite.prepare("INSERT INTO location VALUES(?,?,?,?,?)");
    auto airway = sqlite.prepare("INSERT INTO airway VALUES(?,?)");
    DatabaseFile file;
    check(file.Open(source, SystemClock()).empty(), "world database");
    const auto rows = file.rows();
    FieldMap fields;
    int id = 0;
    for (const std::string_view name : {"AptKey", "Ap2Key", "NavKey", "WptKey", "Airway"}) {
        const IndexEntry& index = *file.index(name);
        for (std::uint32_t row = 0; row < index.rowCount(); ++row) {
            check(rows->load(index, row), "row");
            fields.clear();
            rows->decode(fields);
            if (name == "Airway") {
                bindText(airway.get(), 1, fieldText(fields, "ID"));
                bindText(airway.get(), 2, fieldText(fields, "ROUTE"));
                step(airway.get());
                continue;
            }
            const double lat = fieldNumber(fields, "LAT");
            const double lon = fieldNumber(fields, "LON");
            sqlite3_bind_int(place.get(), 1, ++id);
            bindText(place.get(), 2, fieldText(fields, "ID"));
            sqlite3_bind_int(place.get(), 3, kindFrom(fields));
            sqlite3_bind_double(place.get(), 4, lat);
            sqlite3_bind_double(place.get(), 5, lon);
            bindText(place.get(), 6, fieldText(fields, "NAME"));
            sqlite3_bind_double(place.get(), 7, fieldNumber(fields, "FREQ"));
            step(place.get());
            sqlite3_bind_int(location.get(), 1, id);
            for (int column = 2; column <= 5; ++column)
                sqlite3_bind_double(location.get(), column, column < 4 ? lat : lon);
            step(location.get());
        }
    }
    check(sqlite3_exec(db,
                       "COMMIT; CREATE INDEX byident ON place(ident, kind);"
                       "CREATE INDEX byname ON airway(id); ANALYZE; VACUUM;",
                       nullptr, nullptr, nullptr) == SQLITE_OK,
          "indexes");
}

SqlitePlaces::SqlitePlaces(const std::filesystem::path& path) {
    sqlite3* db = nullptr;
    check(sqlite3_open(path.c_str(), &db) == SQLITE_OK, "open");
    database_.reset(db);
    find_ = prepare("SELECT ident,name,kind,lat,lon,frequency FROM place WHERE ident=? AND kind=?");
    named_ = prepare("SELECT ident,name,kind,lat,lon,frequency FROM place WHERE ident=?");
    airway_ = prepare("SELECT route FROM airway WHERE id=?");
    box_ = prepare(
        "SELECT ident,name,kind,lat,lon,frequency FROM location JOIN place USING(id)"
        " WHERE south>=? AND north<=? AND west>=? AND east<=?");
}

SqlitePlaces::Statement SqlitePlaces::prepare(const char* sql) const {
    sqlite3_stmt* statement = nullptr;
    sqlite3_prepare_v2(database_.get(), sql, -1, &statement, nullptr);
    return {statement, sqlite3_finalize};
}

void SqlitePlaces::read(sqlite3_stmt* statement, Row& row) {
    row.ident = textAt(statement, 0);
    row.name = textAt(statement, 1);
    row.kind = sqlite3_column_int(statement, 2);
    row.lat = sqlite3_column_double(statement, 3);
    row.lon = sqlite3_column_double(statement, 4);
    row.frequency = sqlite3_column_double(statement, 5);
}

bool SqlitePlaces::find(KindMask kind, std::string_view ident, Row& row) {
    bindText(find_.get(), 1, ident);
    sqlite3_bind_int(find_.get(), 2, static_cast<int>(kind));
    const bool found = sqlite3_step(find_.get()) == SQLITE_ROW;
    if (found)
        read(find_.get(), row);
    sqlite3_reset(find_.get());
    return found;
}

bool SqlitePlaces::findNearestNamed(std::string_view ident, double lat, double lon, Row& row) {
    bindText(named_.get(), 1, ident);
    double best = 1e9;
    Row candidate;
    while (sqlite3_step(named_.get()) == SQLITE_ROW) {
        read(named_.get(), candidate);
        const double distance = GreatCircleDistance(
            lat * kDegToRad, lon * kDegToRad, candidate.lat * kDegToRad, candidate.lon * kDegToRad);
        if (distance < best) {
            best = distance;
            row = candidate;
        }
    }
    sqlite3_reset(named_.get());
    return best < 1e9;
}

std::size_t SqlitePlaces::airway(std::string_view name, std::vector<std::string>& routes) {
    routes.clear();
    bindText(airway_.get(), 1, name);
    while (sqlite3_step(airway_.get()) == SQLITE_ROW)
        routes.push_back(textAt(airway_.get(), 0));
    sqlite3_reset(airway_.get());
    return routes.size();
}

std::size_t SqlitePlaces::box(const GeoBox& box, std::vector<Row>& rows) {
    rows.clear();
    sqlite3_bind_double(box_.get(), 1, box.south);
    sqlite3_bind_double(box_.get(), 2, box.north);
    sqlite3_bind_double(box_.get(), 3, box.west);
    sqlite3_bind_double(box_.get(), 4, box.east);
    while (sqlite3_step(box_.get()) == SQLITE_ROW)
        read(box_.get(), rows.emplace_back());
    sqlite3_reset(box_.get());
    return rows.size();
}

std::size_t SqlitePlaces::nearest(double lat, double lon, double reachNm, std::size_t count,
                                  std::vector<Row>& rows) {
    const double height = reachNm / 60;
    const double width = height / std::cos(lat * kDegToRad);
    box({lat - height, lon - width, lat + height, lon + width}, rows);
    const auto distance = [&](const Row& row) {
        return GreatCircleDistance(lat * kDegToRad, lon * kDegToRad, row.lat * kDegToRad,
                                   row.lon * kDegToRad);
    };
    const auto kept = std::min(count, rows.size());
    std::partial_sort(rows.begin(), rows.begin() + static_cast<std::ptrdiff_t>(kept), rows.end(),
                      [&](const Row& a, const Row& b) { return distance(a) < distance(b); });
    rows.resize(kept);
    return kept;
}

}  // namespace korvel
