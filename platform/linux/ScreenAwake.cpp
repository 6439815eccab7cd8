#include "platform/ScreenAwake.h"

namespace korvel {

// Screens belong to the desktop here.
bool keepScreenAwake(bool /*on*/) { return false; }

}  // namespace korvel
