#pragma once

#include <memory>
#include <string>
#include <vector>

#include "compiler/sources/GeoDegrees.h"
#include "compiler/sources/LineReader.h"
#include "compiler/sources/XPlaneFile.h"

namespace korvel {

/// A town or, when it is large, a city.
struct SourceTown {
    std::string name;
    GeoDegrees position;
    bool isCity = false;
};

/// Cities (rows 12) and towns (rows 13) of a places.dat: latitude, longitude, name in UTF-8. Lines
/// that begin with "#" are remarks, other rows are left alone. A malformed line is reported and
/// skipped. The result is empty, or that reading failed.
[[nodiscard]] std::string importTowns(const std::string& name, std::unique_ptr<ByteSource> source,
                                      ImportContext& context, std::vector<SourceTown>& towns);

}  // namespace korvel
