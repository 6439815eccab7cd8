#pragma once

#include <cstdint>

#include "receiver/LineListener.h"
#include "receiver/PortSettings.h"
#include "receiver/SentenceSource.h"
#include "receiver/SerialPort.h"

namespace korvel {

/// A serial port as a source of sentences: opened at its start, closed at its stop.
class SerialSource final : public SentenceSource, private LineListener {
 public:
    /// `clock` must outlive it.
    SerialSource(SerialDeviceOpener opener, const Clock& clock);
    SerialSource(const SerialSource&) = delete;
    SerialSource& operator=(const SerialSource&) = delete;
    ~SerialSource() override { stop(); }

    /// Which port is opened from the next start on.
    void choose(PortSettings settings) { settings_ = std::move(settings); }
    const PortSettings& settings() const { return settings_; }

    std::string start(SentenceListener& listener) override;
    void stop() override { port_.close(); }
    bool isRunning() const override { return port_.isOpen(); }
    bool hasFailed() const override { return port_.hasReadFailed(); }
    bool isReceiving() override;
    /// Open, but without a byte for so long that its handle may lead nowhere any more, as some
    /// systems leave it when they slept.
    bool seemsStale();
    std::uint64_t bytesReceived() const override { return port_.bytesReceived(); }
    std::string label() const override { return settings_.label(); }

    /// See SerialPort::write(). The owner's thread, or the source's within a delivery.
    void write(std::string_view bytes) { port_.write(bytes); }

    /// Takes effect with the next start; see SerialPort.
    void setTrace(SerialPort::TraceHook hook) { port_.setTrace(std::move(hook)); }

 private:
    void onLine(SerialPort& port, std::string_view text) override;

    const Clock& clock_;
    PortSettings settings_;
    std::int64_t activeMs_ = 0;  // when bytes were last known to arrive, or the port was opened
    SentenceListener* listener_ = nullptr;  // not changed while the port's thread runs
    SerialPort port_;
};

}  // namespace korvel
