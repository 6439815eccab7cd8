#include "platform/ThreadPriority.h"

#include <windows.h>

namespace korvel {

void lowerThreadPriority() { SetThreadPriority(GetCurrentThread(), THREAD_PRIORITY_LOWEST); }

}  // namespace korvel
