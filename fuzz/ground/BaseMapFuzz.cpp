// A base map says anything: opened as it stands and, so that the fuzzer gets past the checksum,
// with a directory that is vouched for; then every tile is asked for.
#include <cstdint>
#include <cstring>
#include <memory>
#include <string>
#include <zlib.h>

#include "geo/Geodesy.h"
#include "ground/MemoryFile.h"
#include "ground/basemap/BaseMap.h"

namespace korvel {
namespace {

void vouchFor(std::string& bytes) {
    std::uint32_t size = 0;
    std::memcpy(&size, bytes.data() + kMapHeadSizeAt, sizeof size);
    if (size < kMapHeaderSize || size > bytes.size())
        return;
    const auto whole = static_cast<std::uint32_t>(bytes.size());
    std::memcpy(bytes.data() + kMapFileSizeAt, &whole, sizeof whole);
    std::memset(bytes.data() + kMapChecksumAt, 0, 4);
    std::string head = bytes.substr(0, size);
    const auto sum = static_cast<std::uint32_t>(
        crc32(0, reinterpret_cast<const Bytef*>(head.data()), static_cast<uInt>(size)));
    std::memcpy(bytes.data() + kMapChecksumAt, &sum, sizeof sum);
}

void readAll(BaseMap& map) {
    for (std::size_t sheet = 0; sheet < map.file().sheets().size(); ++sheet)
        for (int bin = 0; bin < map.file().sheets()[sheet].bins(); ++bin)
            if (map.file().extent(map.file().sheets()[sheet], bin).size > 0)
                (void)map.tile(sheet, bin);
    for (int i = 0; i < kReliefColumns * kReliefRows; ++i)
        if (map.file().reliefTile(i).size > 0)
            (void)map.relief(i);
    for (int i = 0; i < kTownColumns * kTownRows; ++i)
        if (map.file().townCell(i).size > 0)
            (void)map.towns(i);
}

}  // namespace
}  // namespace korvel

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace korvel;  // NOLINT(google-build-using-namespace): the entry point is global
    BaseMap map;
    std::string bytes(data, data + size);
    (void)map.open(std::make_unique<MemoryFile>(bytes), "fuzz.map");
    if (size < kMapHeaderSize)
        return 0;
    vouchFor(bytes);
    if (map.open(std::make_unique<MemoryFile>(bytes), "fuzz.map").empty())
        readAll(map);
    return 0;
}
