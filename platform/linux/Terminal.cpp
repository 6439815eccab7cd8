#include "platform/Terminal.h"

#include <unistd.h>

namespace korvel {

bool errorOutputIsTerminal() { return isatty(STDERR_FILENO) != 0; }

}  // namespace korvel
