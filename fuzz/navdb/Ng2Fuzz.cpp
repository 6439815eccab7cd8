// A database file says anything: opened as it stands and, so that the fuzzer gets past the
// checksum, with a header that vouches for it; then searched in every way.
#include <algorithm>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "MemoryFiles.h"
#include "geo/Geodesy.h"
#include "navdb/NavDatabase.h"
#include "navdb/file/DatabaseChecksum.h"
#include "navdb/file/DatabaseFile.h"
#include "navdb/file/DatabaseLayout.h"
#include "navdb/file/DatabaseVerify.h"
#include "navdb/file/LittleEndian.h"
#include "platform/VirtualClock.h"

namespace korvel {
namespace {

constexpr std::uint32_t kRowsTried = 3;

constexpr const char* kFile = "a.ng2";

std::string_view textOf(std::span<const std::uint8_t> bytes) {
    return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

/// Decodes some rows of every index and returns their identifiers.
std::vector<std::string> readRows(const DatabaseFile& file) {
    std::vector<std::string> idents;
    FieldMap fields;
    const auto rows = file.rows();
    for (const IndexEntry& index : file.directory().indexes()) {
        for (std::uint32_t row = 0; row < std::min(index.rowCount(), kRowsTried); ++row) {
            if (rows->load(index, row)) {
                rows->decode(fields);
                (void)rows->readNamedField("NAME");
                rows->text(index.table->field(packName("ID")), idents.emplace_back());
            }
        }
    }
    return idents;
}

void search(NavDatabase& database, std::vector<std::string> idents) {
    std::vector<std::string> routes;
    idents.resize(std::min<std::size_t>(idents.size(), 4));
    for (const std::string& ident : idents) {
        const GeoPoint here{.lat = 0.8, .lon = 0.1};
        for (const std::string& key : {ident, "a." + ident, "v." + ident, "f." + ident}) {
            if (const DatabaseRecord* const record = database.Find(key, here)) {
                const auto copy = record->Clone();
                (void)copy->GetInfoText();
                if (auto* airport = dynamic_cast<AirportRecord*>(copy.get()))
                    database.loadDetails(*airport);
                database.exclude(*database.lastMatch());
            }
        }
        database.GetAirwayRoutes(ident, routes);
    }
    // Every cell of the world would take all the time there is; targets of their own look there.
    for (const GeoPoint& point : {GeoPoint{0.8, 0.1}, GeoPoint{-0.5, kPi}})
        for (const NearPlace& near : database.nearest(point, kAllKinds, 5, 60))
            (void)database.recordOf(near.place);
    std::vector<Place> places;
    database.placesIn({44, 4, 48, 8}, kAllKinds, 100, places);
}

}  // namespace
}  // namespace korvel

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace korvel;  // NOLINT(google-build-using-namespace): the entry point is global
    const VirtualClock clock;
    MemoryFiles disk;
    std::vector<std::uint8_t> bytes(data, data + size);
    disk.put(kFile, textOf(bytes));
    NavDatabase database(clock, disk);
    (void)database.openFile(kFile);
    if (size < kHeaderSize)
        return 0;
    storeU32(bytes, kFullChecksumOffset, 0);
    storeU32(bytes, kHeaderChecksumOffset, headerChecksum(bytes, static_cast<std::uint32_t>(size)));
    disk.put(kFile, textOf(bytes));
    if (database.openFile(kFile).empty()) {
        search(database, readRows(*database.files().back()));
        (void)verifyDatabase(kFile, clock, disk);
    }
    return 0;
}
