#include "receiver/SerialSource.h"

#include <utility>

namespace korvel {

SerialSource::SerialSource(SerialDeviceOpener opener, const Clock& clock)
    : clock_(clock), port_(std::move(opener), clock) {}

std::string SerialSource::start(SentenceListener& listener) {
    if (std::string failure = port_.open(settings_.format()); !failure.empty())
        return failure;
    activeMs_ = clock_.tickMs();
    listener_ = &listener;
    port_.setListener(this);
    port_.startThread();
    return {};
}

bool SerialSource::isReceiving() {
    const bool receiving = port_.isReceiving();
    if (receiving)
        activeMs_ = clock_.tickMs();
    return receiving;
}

bool SerialSource::seemsStale() {
    constexpr std::int64_t kStaleMs = 10000;
    return isRunning() && !isReceiving() && clock_.tickMs() - activeMs_ >= kStaleMs;
}

void SerialSource::onLine(SerialPort& /*port*/, std::string_view text) {
    listener_->onLine(text, clock_.tickMs());
}

}  // namespace korvel
