#include "platform/NetworkDevice.h"

#include <algorithm>
#include <utility>

namespace korvel {
namespace {

using std::chrono::milliseconds;
using std::chrono::steady_clock;

/// The longest that a read waits, so that the port's thread can send what waits to be sent.
constexpr milliseconds kReadWait{200};
constexpr milliseconds kAttempt{5000};
constexpr std::int64_t kRetryMs = 2000;
constexpr std::size_t kMostReceived = 65536;  ///< no datagram is longer

std::int64_t nowMs() {
    return std::chrono::duration_cast<milliseconds>(steady_clock::now().time_since_epoch()).count();
}

}  // namespace

NetworkDevice::NetworkDevice(NetworkTarget target, std::shared_ptr<NetworkProgress> progress,
                             Threading& threading)
    : target_(std::move(target)),
      progress_(std::move(progress)),
      threading_(threading),
      aborted_(threading.makeEvent(Event::Reset::Manual)),
      received_(kMostReceived) {}

SerialDevice::Transfer NetworkDevice::read(std::span<char> into) {
    if (!aborted_ || aborted_.isSet())
        return {kErrorOperationAborted, 0};
    if (handedOver_ == arrived_.size()) {
        // The first read that finds nothing ends at once: what the one before it brought is to be
        // delivered first.
        if (std::exchange(delivered_, false))
            return {kNoError, 0};
        if (const SystemError error = open_ ? takeBytes() : goOn(); error != kNoError)
            return {error, 0};
    }
    const std::size_t count = handOver(into);
    delivered_ = delivered_ || count != 0;
    return {kNoError, count};
}

std::size_t NetworkDevice::handOver(std::span<char> into) {
    const std::size_t count = std::min(into.size(), arrived_.size() - handedOver_);
    std::copy_n(arrived_.begin() + static_cast<std::ptrdiff_t>(handedOver_), count, into.begin());
    handedOver_ += count;
    return count;
}

/// One step on the way to an open line, of kReadWait at most.
SystemError NetworkDevice::goOn() {
    if (socket_)
        return waitForConnection();
    if (!addresses_.empty()) {
        connectNext();
        return kNoError;
    }
    if (lookUp_) {
        const auto signalled = Event::waitAny({&aborted_, &lookUp_->done}, kReadWait);
        if (signalled == 1U)
            takeAddresses(std::move(std::exchange(lookUp_, nullptr)->addresses));
        return signalled == 0U ? kErrorOperationAborted : kNoError;
    }
    const std::int64_t pause = progress_->nextAttemptMs - nowMs();
    if (pause > 0)
        return aborted_.wait(std::min(milliseconds(pause), kReadWait)) ? kErrorOperationAborted
                                                                       : kNoError;
    lookUp();
    return kNoError;
}

void NetworkDevice::lookUp() {
    auto numeric = lookUpAddresses(target_.host, target_.port, true);
    if (!numeric.empty())
        return takeAddresses(std::move(numeric));
    progress_->state = NetworkState::LookingUp;
    auto job = std::make_shared<LookUp>();
    job->done = threading_.makeEvent(Event::Reset::Manual);
    if (!job->done)
        return tryAgainLater(NetworkState::NoSuchHost);
    std::thread thread = threading_.startThread([job, host = target_.host, port = target_.port] {
        job->addresses = lookUpAddresses(host, port, false);
        job->done.set();
    });
    if (!thread.joinable())
        return tryAgainLater(NetworkState::NoSuchHost);
    thread.detach();  // a name server that does not answer must hold nobody up
    lookUp_ = std::move(job);
}

void NetworkDevice::takeAddresses(std::vector<NetAddress> addresses) {
    addresses_ = std::move(addresses);
    if (addresses_.empty())
        tryAgainLater(NetworkState::NoSuchHost);
    else
        connectNext();
}

void NetworkDevice::connectNext() {
    const NetAddress address = addresses_.front();
    addresses_.erase(addresses_.begin());
    if (target_.kind == NetworkTarget::Kind::Udp) {
        socket_ = NetSocket::bindUdp(address);
        open_ = static_cast<bool>(socket_);
        if (open_) {
            progress_->localPort = socket_.localPort();
            progress_->state = NetworkState::Open;
        } else if (addresses_.empty()) {
            tryAgainLater(NetworkState::CannotListen);
        }
        return;
    }
    progress_->state = NetworkState::Connecting;
    socket_ = NetSocket::beginTcp(address);
    giveUp_ = steady_clock::now() + kAttempt;
    if (!socket_ && addresses_.empty())
        tryAgainLater(NetworkState::Refused);
}

SystemError NetworkDevice::waitForConnection() {
    const auto wait = socket_.waitWritable(aborted_, kReadWait);
    if (wait == NetSocket::Wait::Aborted)
        return kErrorOperationAborted;
    const bool ended = wait == NetSocket::Wait::Ready;
    if (ended && socket_.connected()) {
        open_ = true;
        progress_->state = NetworkState::Open;
        progress_->nextAttemptMs = nowMs() + kRetryMs;
    } else if (ended || steady_clock::now() >= *giveUp_) {
        socket_ = NetSocket();
        if (addresses_.empty())
            tryAgainLater(NetworkState::Refused);
    }
    return kNoError;
}

void NetworkDevice::tryAgainLater(NetworkState state) {
    socket_ = NetSocket();
    progress_->state = state;
    progress_->nextAttemptMs = nowMs() + kRetryMs;
}

SystemError NetworkDevice::takeBytes() {
    arrived_.clear();
    handedOver_ = 0;
    if (socket_.waitReadable(aborted_, kReadWait) == NetSocket::Wait::Aborted)
        return kErrorOperationAborted;
    const Transfer got = socket_.receive(received_);
    if (got.error != kNoError) {
        progress_->state = NetworkState::Connecting;
        return got.error;
    }
    append({received_.data(), got.count});
    if (got.count > 0 && !std::exchange(answered_, true) && !target_.answer.empty())
        static_cast<void>(write(target_.answer));
    return kNoError;
}

void NetworkDevice::append(std::string_view bytes) {
    if (!target_.isText) {
        arrived_ = bytes;
        return;
    }
    for (const char c : bytes) {
        if (c == '\n' && !lastWasCr_)
            arrived_ += '\r';
        arrived_ += c;
        lastWasCr_ = c == '\r';
    }
    if (target_.kind == NetworkTarget::Kind::Udp && !bytes.empty() && bytes.back() != '\n') {
        arrived_ += lastWasCr_ ? "\n" : "\r\n";
        lastWasCr_ = false;
    }
}

/// What a receiver is told is short: what the system does not take at once is lost.
SerialDevice::Transfer NetworkDevice::write(std::string_view bytes) {
    if (!open_ || target_.kind == NetworkTarget::Kind::Udp)
        return {kNoError, bytes.size()};
    return socket_.send(bytes);
}

}  // namespace korvel
