#pragma once

#include <string>

#include "tools/basemap/Shapes.h"

namespace korvel::making {

// Reads the binned netCDF files of GSHHG. What cannot be read is thrown as std::runtime_error: the
// maker of a map starts anew.

World<ShoreBin> readShores(const std::string& path);
/// Rivers or borders.
World<LineBin> readLines(const std::string& path);

}  // namespace korvel::making
