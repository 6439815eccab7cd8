#pragma once

#include <string>

#include "compiler/NavdbWriter.h"
#include "compiler/sources/AviationData.h"
#include "compiler/sources/ImportLog.h"

namespace korvel {

/// The bytes of the ".ng2" file that holds the data. `data` has been consolidated. Of `header`
/// region, expiry and data cycle count; the coverage is that of the data.
std::string compileNavdb(const AviationData& data, NavdbHeader header, ImportLog& log);

}  // namespace korvel
