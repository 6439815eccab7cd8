#pragma once

#include <chrono>
#include <memory>
#include <span>
#include <string>
#include <string_view>

namespace korvel {

/// A serial line without hardware: what is written to this end arrives at the port that opens
/// deviceName(), and the other way round, byte for byte. For tests, and for replaying a log
/// through a real port.
class PseudoTerminal {
 public:
    /// Null when the system has none to give.
    static std::unique_ptr<PseudoTerminal> create();

    PseudoTerminal() = default;
    PseudoTerminal(const PseudoTerminal&) = delete;
    PseudoTerminal& operator=(const PseudoTerminal&) = delete;
    virtual ~PseudoTerminal() = default;

    /// The port's name as it stands in a settings text before the first comma.
    virtual std::string deviceName() const = 0;

    /// Writes all bytes; waits while the line is full. False when `timeout` passed or the line is
    /// gone.
    virtual bool write(std::string_view bytes, std::chrono::milliseconds timeout) = 0;

    /// Waits for at least one byte; 0 when `timeout` passed or the line is gone.
    virtual std::size_t read(std::span<char> into, std::chrono::milliseconds timeout) = 0;

    /// Closes this end: to the port, the device has been unplugged.
    virtual void unplug() = 0;
};

}  // namespace korvel
