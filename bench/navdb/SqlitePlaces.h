#pragma once

#include <filesystem>
#include <memory>
#include <sqlite3.h>
#include <string>
#include <string_view>
#include <vector>

#include "navdb/NavDatabase.h"

namespace korvel {

/// The peer: the same places in SQLite, in one table with an index on kind and identifier, an
/// R-tree for positions, and a table of airways. Statements are prepared once.
class SqlitePlaces {
 public:
    /// Writes the file from every place and airway of the database file.
    static void build(const std::filesystem::path& path, const std::filesystem::path& source);

    explicit SqlitePlaces(const std::filesystem::path& path);

    struct Row {
        std::string ident;
        std::string name;
        int kind = 0;
        double lat = 0.0;
        double lon = 0.0;
        double frequency = 0.0;
    };
    /// False when there is none.
    bool find(KindMask kind, std::string_view ident, Row& row);
    /// All of the identifier, the nearest to a position in degrees chosen.
    bool findNearestNamed(std::string_view ident, double lat, double lon, Row& row);
    std::size_t airway(std::string_view name, std::vector<std::string>& routes);
    std::size_t box(const GeoBox& box, std::vector<Row>& rows);
    /// The nearest within a box of this half height (NM), ordered by distance.
    std::size_t nearest(double lat, double lon, double reachNm, std::size_t count,
                        std::vector<Row>& rows);

 private:
    using Statement = std::unique_ptr<sqlite3_stmt, int (*)(sqlite3_stmt*)>;
    [[nodiscard]] Statement prepare(const char* sql) const;
    static void read(sqlite3_stmt* statement, Row& row);

    std::unique_ptr<sqlite3, int (*)(sqlite3*)> database_{nullptr, sqlite3_close};
    Statement find_{nullptr, sqlite3_finalize};
    Statement named_{nullptr, sqlite3_finalize};
    Statement airway_{nullptr, sqlite3_finalize};
    Statement box_{nullptr, sqlite3_finalize};
};

}  // namespace korvel
