#include "receiver/ReplaySource.h"

#include <algorithm>
#include <array>
#include <utility>

#include "config/Text.h"
#include "config/texts/ReceiverTexts.h"
#include "platform/Threading.h"
#include "receiver/SerialPort.h"

namespace korvel {
namespace {

/// The pause between the end of a looped script and its next beginning.
constexpr std::int64_t kLoopPauseMs = 1000;

}  // namespace

ReplaySource::ReplaySource(std::vector<ReplayStep> script, Options options, const Clock& clock)
    : script_(std::move(script)), options_(std::move(options)), clock_(clock) {}

std::string ReplaySource::start(SentenceListener& listener) {
    if (isRunning())
        return {};
    if (script_.empty())
        return std::string(text(kReceiverTexts.nothingToReplay));
    if (!stop_)
        return std::string(text(kReceiverTexts.noThread));
    stop_.reset();
    isOver_ = false;
    splitter_.clear();
    thread_ = systemThreading().startThread([this, &listener] { play(listener); });
    return thread_.joinable() ? std::string() : std::string(text(kReceiverTexts.noThread));
}

void ReplaySource::stop() {
    stop_.set();
    if (thread_.joinable())
        thread_.join();
    activity_.clear();
}

std::string ReplaySource::stateText() const {
    return isOver_ ? std::string(text(kReceiverTexts.replayOver)) : std::string();
}

void ReplaySource::play(SentenceListener& listener) {
    do {
        started_ = std::chrono::steady_clock::now();
        for (const ReplayStep& step : script_) {
            if (!waitUntil(step.offsetMs))
                return;
            deliver(step.bytes, listener);
        }
    } while (options_.loop && waitUntil(script_.back().offsetMs + kLoopPauseMs));
    isOver_ = !options_.loop;  // what begins again for ever ends only when it is stopped
}

bool ReplaySource::waitUntil(std::int64_t offsetMs) {
    using std::chrono::milliseconds;
    const std::chrono::duration<double, std::milli> offset(static_cast<double>(offsetMs) /
                                                           options_.speed);
    const auto left = started_ + offset - std::chrono::steady_clock::now();
    return !stop_.wait(std::max(std::chrono::ceil<milliseconds>(left), milliseconds(0)));
}

/// As a port would: bytes that are no sentences go the same way as those of a real receiver.
void ReplaySource::deliver(std::string_view bytes, SentenceListener& listener) {
    std::array<char, SerialPort::kMaxLineLength + 1> line{};
    activity_.count(bytes.size());
    while (!bytes.empty()) {
        const std::string_view piece = bytes.substr(0, std::max<std::size_t>(splitter_.room(), 1));
        bytes.remove_prefix(piece.size());
        splitter_.append(piece);
        for (int length = splitter_.readLine(line); length != LineSplitter::kNoLine;
             length = splitter_.readLine(line))
            if (length > 0)
                listener.onLine({line.data(), static_cast<std::size_t>(length)}, clock_.tickMs());
    }
}

}  // namespace korvel
