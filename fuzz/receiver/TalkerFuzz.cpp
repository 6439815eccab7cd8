// A receiver of many systems that says anything: what the talkers' merge hands on is bounded, is
// either the line itself or a sentence of GP with a correct checksum, and the sky stays in its
// ranges. The first byte says whether checksums are corrected.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "receiver/SentenceText.h"
#include "receiver/talkers/TalkerMerge.h"

namespace korvel {
namespace {

void require(bool holds) {
    if (!holds)
        std::abort();
}

/// Hardly any made-up line has one.
std::string withChecksum(std::string_view line) {
    const std::string_view body = line.substr(0, std::min(line.rfind('*'), line.find('\r')));
    return sentenceOf(body.substr(std::min<std::size_t>(body.size(), 1)));
}

void checkHandedOn(std::string_view line, std::string_view original) {
    if (line == original)
        return;
    unsigned char sum = 0;
    require(line.starts_with("$GP"));
    require(checkSum(line, sum) == ChecksumState::Right);
    require(line.size() <= original.size() + 160);
}

void checkSky(const SkyTable& table) {
    const auto sky = table.satellites();
    for (std::size_t i = 0; i < sky.size(); ++i) {
        require(placeInSystem(sky[i].id) < 64);
        require(i == 0 || sky[i - 1].id < sky[i].id);
    }
}

}  // namespace
}  // namespace korvel

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace korvel;
    if (size == 0)
        return 0;
    // NOLINTNEXTLINE(*-reinterpret-cast): bytes as characters
    std::string_view bytes(reinterpret_cast<const char*>(data) + 1, size - 1);
    Guarded<SkyTable> sky;
    TalkerMerge merge(sky);
    while (!bytes.empty()) {
        const std::string_view line = bytes.substr(0, bytes.find('\n'));
        bytes.remove_prefix(std::min(bytes.size(), line.size() + 1));
        const std::string text = (data[0] & 1U) != 0 ? withChecksum(line) : std::string(line);
        const auto handedOn = merge.take(text);
        require(handedOn.size() <= SkyTable::kMostOfTalker / 4 + 1);
        for (const std::string_view out : handedOn)
            checkHandedOn(out, text);
        checkSky(*sky.lock());
    }
    return 0;
}
