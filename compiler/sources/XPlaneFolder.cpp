#include "compiler/sources/XPlaneFolder.h"

#include <array>
#include <span>
#include <string>
#include <string_view>
#include <system_error>

namespace korvel {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view kAirports = "apt.dat";

/// Where the simulator keeps its data, the newest first; the folder itself comes last.
constexpr std::array<std::string_view, 3> kDataFolders{"Custom Data", "Resources/default data", ""};
constexpr std::array<std::string_view, 4> kAirportFolders{
    "Global Scenery/Global Airports/Earth nav data",
    "Custom Scenery/Global Airports/Earth nav data",  // up to its version 11
    "Resources/default scenery/default apt dat/Earth nav data", ""};

fs::path firstThere(const fs::path& folder, std::span<const std::string_view> places,
                    std::span<const std::string> names) {
    for (const std::string_view place : places)
        for (const std::string& name : names)
            for (const std::string_view packed : {"", ".gz"}) {
                fs::path path = (place.empty() ? folder : folder / place) / name;
                path += packed;
                std::error_code unknown;
                if (fs::is_regular_file(path, unknown))
                    return path;
            }
    return {};
}

fs::path dataFile(const fs::path& folder, const std::string& kind) {
    const std::array names{"earth_" + kind + ".dat", kind + ".dat"};
    return firstThere(folder, kDataFolders, names);
}

}  // namespace

XPlaneFiles findXPlaneFiles(const fs::path& folder) {
    const std::array names{std::string(kAirports)};
    return {.apt = firstThere(folder, kAirportFolders, names),
            .nav = dataFile(folder, "nav"),
            .fix = dataFile(folder, "fix"),
            .awy = dataFile(folder, "awy")};
}

}  // namespace korvel
