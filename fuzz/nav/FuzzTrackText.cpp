#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "nav/track/Track.h"
#include "platform/VirtualClock.h"

/// What was read must come back the same after it was written.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const korvel::VirtualClock clock;
    korvel::Track track(clock);
    track.ReadTrackText({reinterpret_cast<const char*>(data), size});
    std::string first;
    std::string second;
    track.WriteTrackText(first);
    if (!track.ReadTrackText(first))
        std::abort();
    track.WriteTrackText(second);
    if (first.size() != second.size())
        std::abort();
    return 0;
}
