#include "tools/DatagramSender.h"

#include "receiver/network/SourceAddress.h"

namespace korvel {

DatagramSender::DatagramSender(std::string_view to) {
    const auto address = SourceAddress::parse(to);
    if (!address || address->kind != SourceAddress::Kind::Udp || address->host.empty()) {
        error_ = "not an address such as udp://127.0.0.1:4000: " + std::string(to);
        return;
    }
    for (const NetAddress& each : lookUpAddresses(address->host, address->port, false)) {
        socket_ = NetSocket::connectUdp(each);
        if (socket_)
            return;
    }
    error_ = "cannot send to " + std::string(to);
}

/// While nobody listens the system may refuse one; the next may arrive.
void DatagramSender::send(std::string_view datagram) {
    if (socket_.send(datagram).count == datagram.size())
        ++sent_;
}

}  // namespace korvel
