// A file of airspaces says anything; what was read of it is asked everything.
#include <cstdint>
#include <string>

#include "ground/airspace/OpenAir.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace korvel;  // NOLINT(google-build-using-namespace): the entry point is global
    const std::string bytes(data, data + size);
    (void)looksLikeOpenAir(bytes);
    for (const Airspace& airspace : readOpenAir(bytes).airspaces) {
        if (airspace.points() < 3 || !(airspace.areaNm2() >= 0))
            __builtin_trap();
        (void)airspace.box();
        (void)airspace.contains({0.8, 0.1});
        (void)airspace.reaches(5000, 300);
    }
    return 0;
}
