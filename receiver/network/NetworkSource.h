#pragma once

#include <memory>
#include <string>

#include "platform/NetworkDevice.h"
#include "platform/Threading.h"
#include "receiver/LineListener.h"
#include "receiver/SentenceSource.h"
#include "receiver/SerialPort.h"
#include "receiver/network/SourceAddress.h"

namespace korvel {

/// Makes sentences of bytes that are none. Used by the source's thread alone.
class SentenceMaker {
 public:
    SentenceMaker() = default;
    SentenceMaker(const SentenceMaker&) = delete;
    SentenceMaker& operator=(const SentenceMaker&) = delete;
    virtual ~SentenceMaker() = default;

    /// The next bytes, cut anywhere, and when they came; what they say goes to the listener.
    virtual void take(std::string_view bytes, std::int64_t arrivedMs,
                      SentenceListener& listener) = 0;
};

/// A receiver in the network as a source of sentences. Starting it succeeds where a thread can be
/// had; how far the connection has come is its stateText().
class NetworkSource final : public SentenceSource, private LineListener {
 public:
    /// `clock` must outlive it. `maker`, where the bytes are not sentences themselves, must outlive
    /// its running.
    NetworkSource(SourceAddress address, const Clock& clock, SentenceMaker* maker = nullptr,
                  Threading& threading = systemThreading());
    NetworkSource(const NetworkSource&) = delete;
    NetworkSource& operator=(const NetworkSource&) = delete;
    ~NetworkSource() override { stop(); }

    std::string start(SentenceListener& listener) override;
    void stop() override { port_.close(); }
    bool isRunning() const override { return port_.isOpen(); }
    bool hasFailed() const override { return port_.hasReadFailed(); }
    bool isReceiving() override { return port_.isReceiving(); }
    std::uint64_t bytesReceived() const override { return port_.bytesReceived(); }
    std::string label() const override { return address_.label(); }
    std::string stateText() const override;

    /// How far the connection has come.
    const NetworkProgress& progress() const { return *progress_; }

 private:
    void onLine(SerialPort& port, std::string_view text) override;

    SourceAddress address_;
    const Clock& clock_;
    SentenceMaker* maker_;
    std::shared_ptr<NetworkProgress> progress_ = std::make_shared<NetworkProgress>();
    SentenceListener* listener_ = nullptr;  // not changed while the port's thread runs
    SerialPort port_;
};

}  // namespace korvel
