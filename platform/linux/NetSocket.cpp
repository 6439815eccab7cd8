#include "platform/NetSocket.h"

#include <cerrno>
#include <cstring>
#include <memory>
#include <netdb.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

namespace korvel {
namespace {

using std::chrono::milliseconds;

int descriptor(std::intptr_t native) { return static_cast<int>(native); }

const sockaddr* socketAddress(const NetAddress& address) {
    // NOLINTNEXTLINE(*-reinterpret-cast): the bytes are one
    return reinterpret_cast<const sockaddr*>(address.bytes.data());
}

int familyOf(const NetAddress& address) {
    sa_family_t family = 0;
    std::memcpy(&family, address.bytes.data() + offsetof(sockaddr, sa_family), sizeof family);
    return family;
}

int openSocket(const NetAddress& address, int type) {
    return ::socket(familyOf(address), type | SOCK_NONBLOCK | SOCK_CLOEXEC, 0);
}

void switchOn(int fd, int level, int option) {
    const int on = 1;
    ::setsockopt(fd, level, option, &on, sizeof on);
}

NetSocket::Wait waitFor(std::intptr_t native, short what, const Event& aborted,
                        milliseconds limit) {
    std::array<pollfd, 2> waited = {
        {{.fd = descriptor(native), .events = what, .revents = 0},
         {.fd = descriptor(aborted.native()), .events = POLLIN, .revents = 0}}};
    const int ready = ::poll(waited.data(), waited.size(), static_cast<int>(limit.count()));
    if (waited[1].revents != 0)
        return NetSocket::Wait::Aborted;
    return ready == 0 ? NetSocket::Wait::TimedOut : NetSocket::Wait::Ready;
}

bool isDatagram(std::intptr_t native) {
    int type = 0;
    socklen_t size = sizeof type;
    return ::getsockopt(descriptor(native), SOL_SOCKET, SO_TYPE, &type, &size) == 0 &&
           type == SOCK_DGRAM;
}

bool wouldBlock(int number) { return number == EAGAIN || number == EWOULDBLOCK || number == EINTR; }

}  // namespace

std::vector<NetAddress> lookUpAddresses(const std::string& host, std::uint16_t port,
                                        bool numericOnly) {
    addrinfo hints{};
    hints.ai_family = host.empty() ? AF_INET : AF_UNSPEC;
    hints.ai_socktype = SOCK_DGRAM;  // each address once
    hints.ai_flags = AI_NUMERICSERV | AI_PASSIVE | (numericOnly ? AI_NUMERICHOST : 0);
    addrinfo* list = nullptr;
    const std::string service = std::to_string(port);
    if (::getaddrinfo(host.empty() ? nullptr : host.c_str(), service.c_str(), &hints, &list) != 0)
        return {};
    const std::unique_ptr<addrinfo, decltype(&::freeaddrinfo)> owner(list, &::freeaddrinfo);
    std::vector<NetAddress> addresses;
    for (const addrinfo* entry = list; entry != nullptr; entry = entry->ai_next) {
        if (entry->ai_addrlen > NetAddress::kMostBytes)
            continue;
        NetAddress& address = addresses.emplace_back();
        address.size = entry->ai_addrlen;
        std::memcpy(address.bytes.data(), entry->ai_addr, entry->ai_addrlen);
    }
    return addresses;
}

NetSocket::~NetSocket() {
    if (*this)
        ::close(descriptor(native_));
}

NetSocket NetSocket::beginTcp(const NetAddress& to) {
    NetSocket made(openSocket(to, SOCK_STREAM));
    if (!made)
        return {};
    const int fd = descriptor(made.native_);
    constexpr int kIdleSec = 10;
    constexpr int kBetweenSec = 5;
    constexpr int kProbes = 3;
    switchOn(fd, SOL_SOCKET, SO_KEEPALIVE);
    ::setsockopt(fd, IPPROTO_TCP, TCP_KEEPIDLE, &kIdleSec, sizeof kIdleSec);
    ::setsockopt(fd, IPPROTO_TCP, TCP_KEEPINTVL, &kBetweenSec, sizeof kBetweenSec);
    ::setsockopt(fd, IPPROTO_TCP, TCP_KEEPCNT, &kProbes, sizeof kProbes);
    const bool begun = ::connect(fd, socketAddress(to), static_cast<socklen_t>(to.size)) == 0 ||
                       errno == EINPROGRESS;
    return begun ? std::move(made) : NetSocket();
}

bool NetSocket::connected() const {
    int error = 0;
    socklen_t size = sizeof error;
    return ::getsockopt(descriptor(native_), SOL_SOCKET, SO_ERROR, &error, &size) == 0 &&
           error == 0;
}

NetSocket NetSocket::bindUdp(const NetAddress& at) {
    NetSocket made(openSocket(at, SOCK_DGRAM));
    if (!made)
        return {};
    const int fd = descriptor(made.native_);
    switchOn(fd, SOL_SOCKET, SO_REUSEADDR);
    switchOn(fd, SOL_SOCKET, SO_BROADCAST);
    const bool bound = ::bind(fd, socketAddress(at), static_cast<socklen_t>(at.size)) == 0;
    return bound ? std::move(made) : NetSocket();
}

NetSocket NetSocket::connectUdp(const NetAddress& to) {
    NetSocket made(openSocket(to, SOCK_DGRAM));
    if (!made)
        return {};
    const int fd = descriptor(made.native_);
    switchOn(fd, SOL_SOCKET, SO_BROADCAST);
    const bool leads = ::connect(fd, socketAddress(to), static_cast<socklen_t>(to.size)) == 0;
    return leads ? std::move(made) : NetSocket();
}

NetSocket::Wait NetSocket::waitReadable(Event& aborted, milliseconds limit) const {
    return waitFor(native_, POLLIN, aborted, limit);
}

NetSocket::Wait NetSocket::waitWritable(Event& aborted, milliseconds limit) const {
    return waitFor(native_, POLLOUT, aborted, limit);
}

NetSocket::Transfer NetSocket::receive(std::span<char> into) const {
    const ssize_t count = ::recv(descriptor(native_), into.data(), into.size(), 0);
    if (count > 0)
        return {.error = kNoError, .count = static_cast<std::size_t>(count)};
    // An empty datagram is nothing; a connection that brings nothing is closed.
    const bool nothing = count < 0 ? wouldBlock(errno) : isDatagram(native_);
    return {.error = nothing ? kNoError : kErrorDeviceFailure, .count = 0};
}

NetSocket::Transfer NetSocket::send(std::string_view bytes) const {
    const ssize_t count = ::send(descriptor(native_), bytes.data(), bytes.size(), MSG_NOSIGNAL);
    if (count >= 0)
        return {.error = kNoError, .count = static_cast<std::size_t>(count)};
    return {.error = wouldBlock(errno) ? kNoError : kErrorDeviceFailure, .count = 0};
}

std::uint16_t NetSocket::localPort() const {
    NetAddress address;
    auto size = static_cast<socklen_t>(address.bytes.size());
    // NOLINTNEXTLINE(*-reinterpret-cast): the bytes become one
    auto* const own = reinterpret_cast<sockaddr*>(address.bytes.data());
    if (::getsockname(descriptor(native_), own, &size) != 0)
        return 0;
    // Both families have the port at the same place.
    std::uint16_t port = 0;
    std::memcpy(&port, address.bytes.data() + offsetof(sockaddr_in, sin_port), sizeof port);
    return ntohs(port);
}

}  // namespace korvel
