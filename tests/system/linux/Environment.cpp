#include "system/Environment.h"

#include <cstdlib>
#include <ctime>

namespace korvel {

// NOLINTBEGIN(concurrency-mt-unsafe): tests do this on one thread

void setVariable(const char* name, const char* value) {
    if (value != nullptr)
        setenv(name, value, 1);
    else
        unsetenv(name);
}

// NOLINTEND(concurrency-mt-unsafe)

bool rereadTimeZone() {
    tzset();
    return true;
}

bool homeIsAVariable() { return true; }

}  // namespace korvel
