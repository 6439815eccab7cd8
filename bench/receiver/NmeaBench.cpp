// How fast a receiver's bytes become a fix: lines cut, sentences received, queue decoded.
#include <algorithm>
#include <array>
#include <atomic>
#include <cstdint>
#include <cstdlib>
#include <ctime>
#include <fstream>
#include <iterator>
#include <memory>
#include <new>
#include <string>
#include <string_view>
#include <vector>

#include <benchmark/benchmark.h>

#include "platform/VirtualClock.h"
#include "receiver/GpsInput.h"
#include "receiver/LineSplitter.h"
#include "receiver/NmeaPeer.h"
#include "receiver/talkers/TalkerMerge.h"

namespace {

std::atomic<std::uint64_t> allocations{0};

}  // namespace

// Counted, all of them: the steady state is to make none.
void* operator new(std::size_t size) {
    allocations.fetch_add(1, std::memory_order_relaxed);
    void* memory = std::malloc(size);  // NOLINT(*-no-malloc): this is the allocator
    if (memory == nullptr)
        std::abort();
    return memory;
}
void operator delete(void* memory) noexcept { std::free(memory); }  // NOLINT(*-no-malloc)
void operator delete(void* memory, std::size_t /*size*/) noexcept {
    std::free(memory);  // NOLINT(*-no-malloc)
}

namespace korvel {
namespace {

/// What a port reads at once from a receiver that sends a cycle.
constexpr std::size_t kChunk = 512;
/// About a receiver's cycle a second.
constexpr int kLinesPerTick = 8;

struct Log {
    std::string bytes;
    double sentences = 0;
};

/// Some twenty seconds of a real receiver.
const Log& receiverLog() {
    static const Log log = [] {
        std::ifstream file(KORVEL_TEST_DATA "/nmea/ublox-lea-5h.log");
        std::string line;
        Log whole;
        while (std::getline(file, line)) {
            if (line.starts_with('$')) {
                whole.bytes += line + "\r\n";
                ++whole.sentences;
            }
        }
        return whole;
    }();
    return log;
}

/// The program's road from bytes to a fix, without the port.
class Road {
 public:
    explicit Road(bool satellites) : satellites_(satellites) { askForSatellites(); }

    void feed(std::string_view bytes) {
        splitter_.append(bytes);
        std::array<char, 160> line;  // NOLINT(*-member-init): filled by readLine
        for (int length = splitter_.readLine(line); length != LineSplitter::kNoLine;
             length = splitter_.readLine(line)) {
            if (length <= 0)
                continue;
            input_.onSentence({line.data(), static_cast<std::size_t>(length)});
            if (++lines_ % kLinesPerTick == 0) {
                input_.decode(*input_.queue().lock());
                askForSatellites();
            }
        }
    }
    int fixQuality() { return input_.store().copy().fixQuality; }

 private:
    void askForSatellites() {
        if (satellites_)
            input_.satellitesForDisplay();
    }

    VirtualClock clock_;
    GpsInput input_{clock_};
    LineSplitter splitter_;
    int lines_ = 0;
    bool satellites_;
};

/// Returns the processor's seconds that it took.
template <class Decoder>
double feedInChunks(Decoder& decoder, std::string_view bytes) {
    const std::clock_t start = std::clock();
    while (!bytes.empty()) {
        const std::string_view chunk = bytes.substr(0, kChunk);
        decoder.feed(chunk);
        bytes.remove_prefix(chunk.size());
    }
    return static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
}

void bytesToFix(benchmark::State& state, bool satellites) {
    const Log& log = receiverLog();
    Road road(satellites);
    for (int i = 0; i < kLinesPerTick; ++i)
        feedInChunks(road, log.bytes);  // storage that is kept for reuse grows here
    std::uint64_t made = 0;
    double sentences = 0;
    for ([[maybe_unused]] auto _ : state) {
        const std::uint64_t before = allocations;
        feedInChunks(road, log.bytes);
        made += allocations - before;
        sentences += log.sentences;
    }
    if (road.fixQuality() == 0)
        state.SkipWithError("no fix");
    state.counters["sentences/s"] = benchmark::Counter(sentences, benchmark::Counter::kIsRate);
    state.counters["allocations/sentence"] = static_cast<double>(made) / sentences;
}
BENCHMARK_CAPTURE(bytesToFix, plain, false);
BENCHMARK_CAPTURE(bytesToFix, satellites, true);

/// The layer in front of the receiver, on what a receiver of five systems says in a second.
void mergeTalkers(benchmark::State& state) {
    std::ifstream file(KORVEL_TEST_DATA "/nmea/telit-pls83-w.log");
    std::vector<std::string> lines;
    for (std::string line; std::getline(file, line);)
        if (line.starts_with('$'))
            lines.push_back(line);
    Guarded<SkyTable> sky;
    TalkerMerge merge(sky);
    const auto play = [&] {
        std::size_t handedOn = 0;
        for (const std::string& line : lines)
            handedOn += merge.take(line).size();
        return handedOn;
    };
    benchmark::DoNotOptimize(play());  // the buffers grow here
    double sentences = 0;
    const std::uint64_t before = allocations;
    for ([[maybe_unused]] auto _ : state) {
        benchmark::DoNotOptimize(play());
        sentences += static_cast<double>(lines.size());
    }
    state.counters["sentences/s"] = benchmark::Counter(sentences, benchmark::Counter::kIsRate);
    state.counters["allocations/sentence"] = static_cast<double>(allocations - before) / sentences;
}
BENCHMARK(mergeTalkers);

/// Both decoders take turns on the same bytes, so that whatever else the machine does slows both.
void againstPeer(benchmark::State& state) {
    const Log& log = receiverLog();
    Road road(false);
    if (!makeNmeaPeer()) {
        state.SkipWithError("no peer on this system");
        return;
    }
    double ours = 0;
    double theirs = 0;
    double sentences = 0;
    double positions = 0;
    for ([[maybe_unused]] auto _ : state) {
        // A new one each time: it ignores sentences that are older than what it has seen.
        const std::unique_ptr<NmeaPeer> peer = makeNmeaPeer();
        ours += feedInChunks(road, log.bytes);
        theirs += feedInChunks(*peer, log.bytes);
        sentences += log.sentences;
        positions += static_cast<double>(peer->positions());
    }
    state.counters["sentences/s"] = sentences / ours;
    state.counters["peer sentences/s"] = sentences / theirs;
    state.counters["peer positions/log"] = positions / static_cast<double>(state.iterations());
    state.counters["times faster"] = theirs / ours;
}
BENCHMARK(againstPeer);

}  // namespace
}  // namespace korvel
