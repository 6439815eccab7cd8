#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "platform/NetSocket.h"

namespace korvel {

/// Sends datagrams to one place of the network.
class DatagramSender {
 public:
    /// "udp://HOST:PORT". Nobody needs to listen there; error() tells what is no such address.
    explicit DatagramSender(std::string_view to);

    [[nodiscard]] const std::string& error() const { return error_; }
    void send(std::string_view datagram);
    [[nodiscard]] std::size_t sent() const { return sent_; }

 private:
    NetSocket socket_;
    std::string error_;
    std::size_t sent_ = 0;
};

}  // namespace korvel
