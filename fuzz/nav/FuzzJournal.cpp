// A journal that a kill, a full disk or anybody else has left: what makes sense of it comes back,
// the recording goes on behind it, and the next run finds at least as much.
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "MemoryFiles.h"
#include "nav/track/TrackRecorder.h"
#include "platform/VirtualClock.h"

namespace {

std::size_t slotsOf(const korvel::TrackRecorder& recorder) {
    const auto track = recorder.track();
    return track ? track->read()->slots.size() : 0;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace korvel;
    constexpr const char* kJournal = "track.journal";
    VirtualClock clock;
    MemoryFiles disk;
    disk.put(kJournal, {reinterpret_cast<const char*>(data), size});
    std::size_t recorded = 0;
    {
        TrackRecorder recorder(clock, kJournal, disk);
        const std::size_t taken = slotsOf(recorder);
        clock.advanceMs(60'000);
        recorder.offer({0.8, 0.1}, 100, 90, 1000);
        (void)recorder.takeTrouble();
        recorded = slotsOf(recorder);
        if (recorded <= taken)
            std::abort();
    }
    const TrackRecorder next(clock, kJournal, disk);
    if (slotsOf(next) < recorded)
        std::abort();
    return 0;
}
