#include "receiver/SentenceReceiver.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string>

#include "base/Ascii.h"
#include "base/TextNumbers.h"
#include "receiver/SentenceText.h"

namespace korvel {
namespace {

constexpr std::size_t kTalkerLength = 2;  // behind the dollar
constexpr std::string_view kAttitude = "$RPY";
constexpr std::string_view kInView = "$GPGSV";
constexpr std::array<std::string_view, 5> kUsedSentences = {"$GPRMC", "$GPGGA", "$GPVTG", kInView,
                                                            "$GPGSA"};

std::string_view idOf(std::string_view line) { return line.substr(0, line.find(',')); }

/// The sentence's place in the table; nothing for one that the program does not use.
std::optional<std::string_view> usedSentence(std::string_view id) {
    std::array<char, kInView.size()> upper{};
    if (id.size() != upper.size())
        return std::nullopt;
    std::transform(id.begin(), id.end(), upper.begin(), upperAscii);
    const auto* const found = std::find(kUsedSentences.begin(), kUsedSentences.end(),
                                        std::string_view(upper.data(), upper.size()));
    return found == kUsedSentences.end() ? std::nullopt : std::optional(*found);
}

/// Whether it would be used if it were GP's. What begins with P is a maker's own.
bool isOfAnotherTalker(std::string_view id) {
    return id.size() > kTalkerLength && id[1] != 'P' &&
           usedSentence(std::string("$GP").append(id.substr(1 + kTalkerLength)));
}

}  // namespace

std::optional<std::string_view> attitudeSentence(std::string_view text) {
    const std::string_view line = withoutCr(text);
    return idOf(line) == kAttitude && hasSentenceCharacters(line) ? std::optional(line)
                                                                  : std::nullopt;
}

void SentenceReceiver::onSentence(std::string_view text, std::int64_t arrivedMs) {
    const std::string_view line = withoutCr(text);
    if (line.empty() || line.front() != '$') {
        if (outlets_.answer && (text == "ASTRAL" || text == "ASTRAL\r"))
            outlets_.answer("ASTRAL\r\n");
        return;
    }
    if (!hasSentenceCharacters(line)) {
        store_.trace(line, " non-ascii chars");
        return;
    }
    const std::string_view id = idOf(line);
    if (id == kAttitude) {
        if (outlets_.attitude)
            outlets_.attitude(line);
        return;
    }
    if (!checksumCorrect(line))
        return;
    {
        const auto shared = store_.shared().lock();
        shared->sentenceFlags |= SentenceFlag::kChecksumCorrect;
        shared->correctMs = arrivedMs;
        ++shared->correctSentences;
    }
    const std::optional<std::string_view> kind = usedSentence(id);
    if (!kind) {
        if (isOfAnotherTalker(id))
            store_.shared().lock()->otherTalker = id.substr(1, kTalkerLength);
        store_.trace(line, " not used");
        return;
    }
    {
        const auto queue = queue_.lock();
        if (*kind != kInView)
            queue->replace(id, line, arrivedMs);
        else if (satellitesWanted_)
            queue->append(line, arrivedMs);
    }
    traceAccepted(line, arrivedMs);
}

bool SentenceReceiver::checksumCorrect(std::string_view line) {
    unsigned char sum = 0;
    switch (checkSum(line, sum)) {
        case ChecksumState::Missing:
            store_.trace(line, " no checksum");
            return false;
        case ChecksumState::Wrong:
            store_.trace(line, " checksum failed");
            return false;
        case ChecksumState::Right:
            break;
    }
    return true;
}

void SentenceReceiver::traceAccepted(std::string_view line, std::int64_t arrivedMs) {
    if (store_.tracing()) {
        const std::int64_t delta = previousMs_ == 0 ? 0 : arrivedMs - previousMs_;
        store_.trace(line, " ok (delta " + formatInt(delta) + ")");
    }
    previousMs_ = arrivedMs;
}

}  // namespace korvel
