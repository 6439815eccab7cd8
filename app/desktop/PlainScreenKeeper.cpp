#include "app/ScreenKeeper.h"
#include "platform/ScreenAwake.h"

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
