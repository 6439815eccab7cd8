// A table of obstacles says anything.
#include <cstdint>
#include <string_view>

#include "geo/Geodesy.h"
#include "ground/obstacles/ObstacleFile.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace korvel;  // NOLINT(google-build-using-namespace): the entry point is global
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    const ObstacleFile file = readObstacles(bytes);
    if (!file.obstacles.empty() && !looksLikeObstacles(bytes))
        __builtin_trap();
    for (const Obstacle& obstacle : file.obstacles)
        if (!IsValid(obstacle.position) || obstacle.aglFt <= 0)
            __builtin_trap();
    return 0;
}
