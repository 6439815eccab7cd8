#pragma once

#include <filesystem>

namespace korvel {

/// X-Plane's files, as far as they are there; a path is empty where one is not.
struct XPlaneFiles {
    std::filesystem::path apt;
    std::filesystem::path nav;
    std::filesystem::path fix;
    std::filesystem::path awy;
};

/// What lies in `folder`: the simulator's own folder, in which the pilot's newer data ("Custom
/// Data") win over those that came with it, or a plain folder with the files in it, in today's
/// names (earth_nav.dat) or the older ones (nav.dat), plain or .gz.
XPlaneFiles findXPlaneFiles(const std::filesystem::path& folder);

}  // namespace korvel
