#pragma once

#include <cstdint>

namespace korvel {

/// How often this program has asked for memory.
std::int64_t allocationCount();

}  // namespace korvel
