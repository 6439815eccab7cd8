#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "FuzzPlaces.h"
#include "MemoryFiles.h"
#include "nav/plan/PlanFiles.h"

/// Converts a list on a disk of its own and opens the result.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace korvel;
    MemoryFiles disk;
    FuzzPlaces places;
    GuardedPlan plan;
    PlanFiles files(places.database, places.generated, &places.records, plan, disk);
    const std::string_view list(reinterpret_cast<const char*>(data), size);
    const std::string error = files.OpenPlanFile("a.txt", list);
    if (error.empty() != plan.lock()->has_value())
        std::abort();
    return 0;
}
