#include "receiver/network/NetworkSource.h"

#include <utility>

#include "config/Text.h"
#include "config/texts/ReceiverTexts.h"

namespace korvel {
namespace {

/// A port that has no name and no speed worth telling.
constexpr std::string_view kPort = "NET:,115200,N,8,1";

NetworkTarget targetOf(const SourceAddress& address) {
    using Kind = SourceAddress::Kind;
    const bool connects = address.kind == Kind::Tcp || address.kind == Kind::Gpsd;
    NetworkTarget target{.kind = connects ? NetworkTarget::Kind::Tcp : NetworkTarget::Kind::Udp,
                         .host = address.host,
                         .port = address.port};
    if (address.kind == Kind::Gpsd)
        target.answer = "?WATCH={\"enable\":true,\"nmea\":true};\r\n";
    target.isText = address.kind != Kind::Gdl90;
    return target;
}

SerialDeviceOpener openerOf(const SourceAddress& address,
                            const std::shared_ptr<NetworkProgress>& progress,
                            Threading& threading) {
    return [target = targetOf(address), progress, &threading](
               std::string_view /*path*/, SystemError& error) -> std::unique_ptr<SerialDevice> {
        error = kNoError;
        return std::make_unique<NetworkDevice>(target, progress, threading);
    };
}

}  // namespace

NetworkSource::NetworkSource(SourceAddress address, const Clock& clock, SentenceMaker* maker,
                             Threading& threading)
    : address_(std::move(address)),
      clock_(clock),
      maker_(maker),
      port_(openerOf(address_, progress_, threading), clock, threading) {
    if (maker_ != nullptr)
        port_.setDelimiter({});
}

std::string NetworkSource::start(SentenceListener& listener) {
    if (std::string failure = port_.open(kPort); !failure.empty())
        return failure;
    listener_ = &listener;
    port_.setListener(this);
    port_.startThread();
    return {};
}

std::string NetworkSource::stateText() const {
    switch (progress_->state) {
        case NetworkState::LookingUp:
            return std::string(text(kReceiverTexts.lookingUp));
        case NetworkState::NoSuchHost:
            return std::string(text(kReceiverTexts.noSuchHost));
        case NetworkState::Connecting:
            return std::string(text(kReceiverTexts.connecting));
        case NetworkState::Refused:
            return std::string(text(kReceiverTexts.noConnection));
        case NetworkState::CannotListen:
            return std::string(text(kReceiverTexts.cannotListen));
        case NetworkState::Open:
            break;
    }
    return {};
}

void NetworkSource::onLine(SerialPort& /*port*/, std::string_view text) {
    const std::int64_t now = clock_.tickMs();
    if (maker_ != nullptr)
        maker_->take(text, now, *listener_);
    else
        listener_->onLine(text, now);
}

}  // namespace korvel
