#include "platform/ThreadPriority.h"

#include <sys/resource.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace korvel {

// Linux keeps a niceness for each thread, POSIX one for the whole process.
void lowerThreadPriority() {
    constexpr int kStandsBack = 15;
    const auto thread = static_cast<id_t>(syscall(SYS_gettid));
    setpriority(PRIO_PROCESS, thread, kStandsBack);
}

}  // namespace korvel
