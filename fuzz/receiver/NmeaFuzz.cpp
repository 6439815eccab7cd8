// A receiver that says anything: lines go through receiver, queue and decoder as they do in the
// program, and what holds for every fix is checked after each tick.
#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "platform/VirtualClock.h"
#include "receiver/GpsInput.h"
#include "receiver/SentenceText.h"

namespace korvel {
namespace {

void require(bool holds) {
    if (!holds)
        std::abort();
}

void tick(GpsInput& input, std::int64_t nowMs) {
    const auto queue = input.queue().lock();
    require(queue->sentences().size() <= 256);
    input.decode(*queue);
    require(queue->empty());
    const GpsFix fix = input.store().copy();
    require(fix.fixQuality == 0 || IsValid(fix.position));
    require(fix.positionTickMs <= nowMs);
    require(fix.altitudeFt >= -2000 && fix.altitudeFt <= 100000);
    require(std::isfinite(fix.groundSpeedKt));
    require(input.decoder().takeCommands().size() <= 2);
}

/// The line with a correct checksum, without which hardly any made-up line reaches the decoder.
std::string withChecksum(std::string_view line) {
    const std::string_view body = line.substr(0, std::min(line.rfind('*'), line.find('\r')));
    return sentenceOf(body.substr(std::min<std::size_t>(body.size(), 1)));
}

void feed(GpsInput& input, VirtualClock& clock, std::string_view bytes, unsigned choice) {
    const unsigned linesPerTick = choice % 16 + 1;
    unsigned lines = 0;
    while (!bytes.empty()) {
        const std::string_view line = bytes.substr(0, bytes.find('\n'));
        bytes.remove_prefix(line.size() == bytes.size() ? line.size() : line.size() + 1);
        input.onSentence((choice & 0x20U) != 0 ? withChecksum(line) : std::string(line));
        if (++lines % linesPerTick == 0) {
            clock.advanceMs(500);
            tick(input, clock.tickMs());
            input.satellitesForDisplay();
        }
    }
    tick(input, clock.tickMs());
}

}  // namespace
}  // namespace korvel

/// The first byte chooses how many lines come between two ticks (low bits), whether
/// checksums are corrected (0x20), whether the receiver's variation is ignored (0x40) and whether
/// satellites are looked at from the start (0x80).
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace korvel;
    if (size == 0)
        return 0;
    const unsigned choice = data[0];
    // NOLINTNEXTLINE(*-reinterpret-cast): bytes as characters
    const std::string_view bytes(reinterpret_cast<const char*>(data) + 1, size - 1);
    VirtualClock clock;
    std::size_t answered = 0;
    GpsInput input(clock,
                   {.answer = [&answered](std::string_view bytes) { answered += bytes.size(); }});
    input.decoder().setPort("COM6:,38400,N,8,1");
    input.decoder().setVariationLookup([](GeoPoint) { return 3.5; });
    input.decoder().ignoreReceiverVariation((choice & 0x40U) != 0);
    input.store().setTracing(true);
    if ((choice & 0x80U) != 0)
        input.satellitesForDisplay();
    feed(input, clock, bytes, choice);
    for (const std::string& line : input.store().takeTrace())
        require(line.find(':') != std::string::npos);
    return 0;
}
