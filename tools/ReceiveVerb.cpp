#include <algorithm>
#include <chrono>
#include <optional>
#include <string>
#include <thread>

#include "platform/FileIo.h"
#include "platform/SystemClock.h"
#include "receiver/gdl90/Gdl90Receiver.h"
#include "receiver/network/NetworkSource.h"
#include "tools/Arguments.h"
#include "tools/Invocation.h"
#include "tools/NmeaDecoding.h"
#include "tools/Verbs.h"

namespace korvel {

int runReceive(Invocation& call) {
    std::string sourceText;
    std::string seconds = "5";
    NmeaDecoding::Options options{.satellites = true};
    std::string talkers = "gp";
    call.options()
        .add_option("source", sourceText,
                    "tcp://HOST:PORT, udp://[ADDRESS]:PORT, gpsd://HOST[:PORT] or "
                    "gdl90://[ADDRESS][:PORT]")
        ->required();
    call.options().add_option("--seconds", seconds, "How long to listen");
    call.options()
        .add_option("--talkers", talkers, "Whose sentences are understood")
        ->check(CLI::IsMember({"gp", "all"}));
    call.parse();
    const auto address = SourceAddress::parse(sourceText);
    if (!address)
        usageError("This is no source: " + sourceText);
    const double listenS = toNumber(seconds);
    constexpr double kLongestS = 86400;
    if (!(listenS > 0 && listenS <= kLongestS))
        usageError("--seconds takes a number above 0");
    options.allTalkers = talkers == "all";
    NmeaDecoding decoding(options);
    Gdl90Receiver gdl90;
    for (const auto& folder : call.dataFolders())
        if (const auto bytes = readWholeFile(folder / Geoid::kFileName))
            gdl90.setGeoid(Geoid::fromBytes(*bytes));
    SystemClock clock;
    NetworkSource source(*address, clock,
                         address->kind == SourceAddress::Kind::Gdl90 ? &gdl90 : nullptr);
    if (const std::string failure = source.start(decoding); !failure.empty())
        return call.fail(failure);
    constexpr std::chrono::milliseconds kTick{500};
    const auto end = std::chrono::steady_clock::now() + std::chrono::duration<double>(listenS);
    while (std::chrono::steady_clock::now() < end) {
        std::this_thread::sleep_for(
            std::min<std::chrono::duration<double>>(kTick, end - std::chrono::steady_clock::now()));
        decoding.decode();
    }
    source.stop();
    decoding.decode();
    return call.done(decoding.json(), decoding.plain());
}

}  // namespace korvel
