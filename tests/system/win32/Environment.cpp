#include "system/Environment.h"

#include <windows.h>

namespace korvel {

void setVariable(const char* name, const char* value) { SetEnvironmentVariableA(name, value); }

bool rereadTimeZone() { return false; }

bool homeIsAVariable() { return false; }

}  // namespace korvel
