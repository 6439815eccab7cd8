#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "FuzzPlaces.h"
#include "nav/plan/PlanFiles.h"

/// A plan that was read is written so that it can be read again, as the same plan.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace korvel;
    FuzzPlaces places;
    GuardedPlan plan;
    PlanFiles files(places.database, places.generated, &places.records, plan);
    if (!files.LoadPlanText({reinterpret_cast<const char*>(data), size}).empty())
        return 0;
    const std::string saved = files.SavePlan();
    if (!files.LoadPlanText(saved).empty())
        std::abort();
    return 0;
}
