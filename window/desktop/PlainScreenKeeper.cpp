#include "platform/ScreenAwake.h"
#include "window/ScreenKeeper.h"

namespace korvel {

class ScreenKeeper::Desktop {};

ScreenKeeper::ScreenKeeper() = default;

ScreenKeeper::~ScreenKeeper() { keep(false); }

void ScreenKeeper::keep(bool on) {
    if (on != kept_)
        keepScreenAwake(on);
    kept_ = on;
}

}  // namespace korvel
