#include "receiver/ReplaySource.h"

#include <chrono>
#include <utility>

#include "config/Text.h"
#include "config/texts/ReceiverTexts.h"
#include "platform/PseudoTerminal.h"

namespace korvel {
namespace {

/// The pause between the end of a looped script and its next beginning.
constexpr std::int64_t kLoopPauseMs = 1000;

constexpr std::chrono::milliseconds kPatience(100);

}  // namespace

ReplaySource::ReplaySource(std::vector<ReplayStep> script, double speed, bool loop)
    : script_(std::move(script)), speed_(speed), loop_(loop) {}

ReplaySource::~ReplaySource() {
    {
        const std::lock_guard lock(mutex_);
        stopping_ = true;
    }
    wake_.notify_all();
    if (thread_.joinable()) {
        thread_.join();
    }
}

std::string ReplaySource::start() {
    if (script_.empty()) {
        return std::string(text(kReceiverTexts.nothingToReplay));
    }
    terminal_ = PseudoTerminal::create();
    if (!terminal_) {
        return "The system has no pseudo-terminal to give";
    }
    thread_ = std::thread([this] { play(); });
    return {};
}

std::string ReplaySource::portSettings() const { return terminal_->deviceName() + ",115200,N,8,1"; }

void ReplaySource::play() {
    do {
        started_ = std::chrono::steady_clock::now();
        for (const ReplayStep& step : script_) {
            if (!waitUntil(step.offsetMs)) {
                return;
            }
            // Like a receiver the replay waits for nobody: what is not taken in time is lost.
            terminal_->write(step.bytes, kPatience);
        }
    } while (loop_ && waitUntil(script_.back().offsetMs + kLoopPauseMs));
}

bool ReplaySource::waitUntil(std::int64_t offsetMs) {
    const std::chrono::duration<double, std::milli> offset(static_cast<double>(offsetMs) / speed_);
    const auto due =
        started_ + std::chrono::duration_cast<std::chrono::steady_clock::duration>(offset);
    std::unique_lock lock(mutex_);
    return !wake_.wait_until(lock, due, [this] { return stopping_; });
}

}  // namespace korvel
