#pragma once

#include <string>
#include <vector>

namespace korvel {

/// What a program was started with, its own name first, in UTF-8: to be asked of main()'s arguments
/// at once. On Windows those have lost what the system's character set does not have, and are
/// fetched anew.
std::vector<std::string> programArguments(int argc, const char* const* argv);

}  // namespace korvel
