#include "platform/Terminal.h"

#include <cstdio>
#include <io.h>

namespace korvel {

bool errorOutputIsTerminal() { return _isatty(_fileno(stderr)) != 0; }

}  // namespace korvel
