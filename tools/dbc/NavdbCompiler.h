#pragma once

#include <string>

#include "dbc/AviationData.h"
#include "dbc/ImportLog.h"
#include "dbc/NavdbWriter.h"

namespace korvel {

/// The bytes of the ".ng2" file that holds the data. `data` has been consolidated. Of `header`
/// region, expiry and data cycle count; the coverage is that of the data.
std::string compileNavdb(const AviationData& data, NavdbHeader header, ImportLog& log);

}  // namespace korvel
