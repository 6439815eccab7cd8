// A packed tile of heights says anything: it must neither grow without bound nor be read as a tile
// that it is not.
#include <cstdint>
#include <string_view>

#include "ground/terrain/HgtTile.h"
#include "ground/terrain/Unpack.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace korvel;  // NOLINT(google-build-using-namespace): the entry point is global
    constexpr std::size_t kLimit = 5000;
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    if (const auto plain = unpacked(bytes, kLimit); plain && plain->size() > kLimit)
        __builtin_trap();
    (void)tileOfName(bytes);
    return 0;
}
