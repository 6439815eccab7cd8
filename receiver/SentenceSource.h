#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace korvel {

/// Takes the lines of a source.
class SentenceListener {
 public:
    SentenceListener() = default;
    SentenceListener(const SentenceListener&) = delete;
    SentenceListener& operator=(const SentenceListener&) = delete;
    virtual ~SentenceListener() = default;

    /// One line without its end, and the tick at which it came. The view is good during the call
    /// only. Runs on the source's thread and must not start or stop the source.
    virtual void onLine(std::string_view line, std::int64_t arrivedMs) = 0;
};

/// What stands behind a source: only a receiver tells where the aircraft is now.
enum class SourceKind : std::uint8_t { Receiver, Demonstration, Replay };

/// Where a receiver's lines come from: a serial port, a log that is played again, whatever else
/// brings lines. Everything but the delivery of lines happens on its owner's thread.
class SentenceSource {
 public:
    SentenceSource() = default;
    SentenceSource(const SentenceSource&) = delete;
    SentenceSource& operator=(const SentenceSource&) = delete;
    virtual ~SentenceSource() = default;

    /// Begins to deliver lines, until stop(). A message text on failure, and then it is stopped.
    /// The listener must outlive the delivery.
    [[nodiscard]] virtual std::string start(SentenceListener& listener) = 0;
    /// When it returns, no line is delivered any more. Also when it is stopped already.
    virtual void stop() = 0;

    [[nodiscard]] virtual bool isRunning() const = 0;
    /// Set for good once what it reads from is gone; it is to be stopped and started again.
    [[nodiscard]] virtual bool hasFailed() const { return false; }
    /// Whether bytes arrive; see ActivityMeter.
    [[nodiscard]] virtual bool isReceiving() = 0;

    [[nodiscard]] virtual SourceKind kind() const { return SourceKind::Receiver; }
    /// It has brought all that it ever will.
    [[nodiscard]] virtual bool hasEnded() const { return false; }
    /// All bytes so far; 0 from a source that does not count them.
    [[nodiscard]] virtual std::uint64_t bytesReceived() const { return 0; }

    /// What the pilot knows it by: "COM3 9600".
    [[nodiscard]] virtual std::string label() const = 0;
    /// Why nothing arrives from it; empty when it cannot tell.
    [[nodiscard]] virtual std::string stateText() const { return {}; }
};

}  // namespace korvel
