#include "platform/ScreenAwake.h"

#include <windows.h>

namespace korvel {

bool keepScreenAwake(bool on) {
    constexpr EXECUTION_STATE kAwake = ES_DISPLAY_REQUIRED | ES_SYSTEM_REQUIRED;
    return SetThreadExecutionState(on ? ES_CONTINUOUS | kAwake : ES_CONTINUOUS) != 0;
}

}  // namespace korvel
