#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <string_view>
#include <unistd.h>

#include "FuzzPlaces.h"
#include "nav/plan/PlanFiles.h"

/// Converts a list in a folder of its own and opens the result.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace korvel;
    static const std::filesystem::path kFolder =
        std::filesystem::temp_directory_path() / ("fuzz-list-" + std::to_string(getpid()));
    std::filesystem::create_directory(kFolder);
    FuzzPlaces places;
    GuardedPlan plan;
    PlanFiles files(places.database, places.generated, &places.records, plan);
    const std::string_view list(reinterpret_cast<const char*>(data), size);
    const std::string error = files.OpenPlanFile(kFolder / "a.txt", list);
    if (error.empty() != plan.lock()->has_value())
        std::abort();
    std::filesystem::remove_all(kFolder);
    return 0;
}
