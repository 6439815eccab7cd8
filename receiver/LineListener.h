#pragma once

#include <string_view>

namespace korvel {

class SerialPort;

/// Receives what a port reads, line by line.
class LineListener {
 public:
    LineListener() = default;
    LineListener(const LineListener&) = delete;
    LineListener& operator=(const LineListener&) = delete;
    virtual ~LineListener() = default;

    /// One line of 1 to 159 bytes without its delimiter; a zero stands behind the view, which is
    /// valid during the call only. Runs on the port's thread inside the port's listener lock: it
    /// must not close the port or set its listener, but may write to it.
    virtual void onLine(SerialPort& port, std::string_view text) = 0;
};

}  // namespace korvel
