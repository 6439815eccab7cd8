#pragma once

#include <vector>

#include "config/Text.h"

namespace korvel {

/// Every text there is, group by group.
std::vector<Text> allTexts();

}  // namespace korvel
