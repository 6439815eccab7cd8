// A database file says anything: opened as it stands and, so that the fuzzer gets past the
// checksum, with a header that vouches for it; then searched in every way.
#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <span>
#include <string>
#include <unistd.h>
#include <vector>

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

constexpr std::uint32_t kRowsTried = 8;

const std::filesystem::path& scratchFile() {
    static const std::filesystem::path path =
        std::filesystem::temp_directory_path() / ("korvel-fuzz-" + std::to_string(::getpid()));
    return path;
}

void write(std::span<const std::uint8_t> bytes) {
    std::filesystem::remove(scratchFile());
    std::ofstream file(scratchFile(), std::ios::binary);
    for (const std::uint8_t byte : bytes)
        file.put(static_cast<char>(byte));
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

void search(NavDatabase& database, const std::vector<std::string>& idents) {
    std::vector<std::string> routes;
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
    for (const GeoPoint& point : {GeoPoint{0, 0}, GeoPoint{kPi / 2, 0}, GeoPoint{-0.5, kPi}})
        for (const NearPlace& near : database.nearest(point, kAllKinds, 5, 21600))
            (void)database.recordOf(near.place);
    std::vector<Place> places;
    database.placesIn({-90, -180, 90, 180}, kAllKinds, 100, places);
}

}  // namespace
}  // namespace korvel

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace korvel;  // NOLINT(google-build-using-namespace): the entry point is global
    const VirtualClock clock;
    std::vector<std::uint8_t> bytes(data, data + size);
    write(bytes);
    NavDatabase database(clock);
    (void)database.openFile(scratchFile());
    if (size < kHeaderSize)
        return 0;
    storeU32(bytes, kFullChecksumOffset, 0);
    storeU32(bytes, kHeaderChecksumOffset, headerChecksum(bytes, static_cast<std::uint32_t>(size)));
    write(bytes);
    if (database.openFile(scratchFile()).empty()) {
        search(database, readRows(*database.files().back()));
        (void)verifyDatabase(scratchFile(), clock);
    }
    return 0;
}
