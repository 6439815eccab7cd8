#pragma once

#include <condition_variable>
#include <memory>
#include <mutex>
#include <string>
#include <string_view>

#include "platform/SerialDevice.h"

namespace korvel {

/// The far end of serial lines that are fed by hand: whichever port is opened hears what is sent.
/// Sending waits until the port's thread has delivered all of it, so that a flight on a virtual
/// clock goes the same way every time. Must outlive the ports that are opened through it.
class FeedDevice {
 public:
    SerialDeviceOpener opener();

    /// Returns at once, and the bytes are lost, while no port is open.
    void send(std::string_view bytes);

 private:
    class Line;

    std::mutex mutex_;
    std::condition_variable changed_;
    std::string arriving_;
    int openLines_ = 0;
    bool idle_ = false;  ///< the reader waits and has delivered everything
};

}  // namespace korvel
