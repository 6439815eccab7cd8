#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "ground/airspace/Airspace.h"

namespace korvel {

struct OpenAirProblem {
    int line = 0;  ///< from 1
    std::string text;
};

/// What a file of airspaces holds.
struct OpenAirFile {
    std::vector<Airspace> airspaces;       ///< in the order of the file
    std::vector<OpenAirProblem> problems;  ///< each has cost one airspace, or one line
};

/// Reads OpenAir in the dialects that are met; an airspace that is faulty is reported and left out,
/// the others stand. Any bytes will do: UTF-8 or Latin-1, any line ends.
OpenAirFile readOpenAir(std::string_view bytes);

/// Whether the bytes look like OpenAir, whatever the file is called.
bool looksLikeOpenAir(std::string_view bytes);

}  // namespace korvel
