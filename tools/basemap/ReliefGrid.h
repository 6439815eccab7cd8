#pragma once

#include <string>
#include <vector>

namespace korvel::making {

/// The heights of the netCDF file "etopo5.cdf", cut into the map's tiles. Throws where it is not
/// such a file.
std::vector<std::string> readRelief(const std::string& path);

}  // namespace korvel::making
