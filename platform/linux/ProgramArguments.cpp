#include "platform/ProgramArguments.h"

namespace korvel {

std::vector<std::string> programArguments(int argc, const char* const* argv) {
    return {argv, argv + argc};
}

}  // namespace korvel
