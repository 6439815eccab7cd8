#include "platform/ZoneTime.h"

namespace korvel {

LocalTime localTimeOf(const Clock& clock, std::int64_t unixSeconds) {
    // What the zone adds is asked at UTC's own hour first, and then at the right one.
    LocalTime local = localTimeAt(unixSeconds);
    for (int i = 0; i < 2; ++i)
        local = localTimeAt(unixSeconds + localSeconds(local) - clock.unixSecondsAt(local));
    return local;
}

}  // namespace korvel
