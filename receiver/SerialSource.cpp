#include "receiver/SerialSource.h"

#include <utility>

namespace korvel {

SerialSource::SerialSource(SerialDeviceOpener opener, const Clock& clock)
    : clock_(clock), port_(std::move(opener), clock) {}

std::string SerialSource::start(SentenceListener& listener) {
    if (std::string failure = port_.open(settings_.format()); !failure.empty())
        return failure;
    listener_ = &listener;
    port_.setListener(this);
    port_.startThread();
    return {};
}

void SerialSource::onLine(SerialPort& /*port*/, std::string_view text) {
    listener_->onLine(text, clock_.tickMs());
}

}  // namespace korvel
