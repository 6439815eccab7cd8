#include "platform/NetSocket.h"

// The socket's header before the system's, which would bring an older one.
// clang-format off
#include <winsock2.h>
#include <ws2tcpip.h>
#include <mstcpip.h>
// clang-format on
#include <array>
#include <cstddef>
#include <cstring>
#include <memory>

namespace korvel {
namespace {

using std::chrono::milliseconds;

SOCKET socketOf(std::intptr_t native) { return static_cast<SOCKET>(native); }

/// The library is wanted for as long as the program runs.
bool networkStarted() {
    static const bool started = [] {
        WSADATA data{};
        return WSAStartup(MAKEWORD(2, 2), &data) == 0;
    }();
    return started;
}

const sockaddr* socketAddress(const NetAddress& address) {
    // NOLINTNEXTLINE(*-reinterpret-cast): the bytes are one
    return reinterpret_cast<const sockaddr*>(address.bytes.data());
}

/// -1 for none, and the socket never waits.
std::intptr_t openSocket(const NetAddress& address, int type) {
    if (!networkStarted())
        return -1;
    const SOCKET made = ::socket(socketAddress(address)->sa_family, type, 0);
    if (made == INVALID_SOCKET)
        return -1;
    u_long on = 1;
    ::ioctlsocket(made, static_cast<long>(FIONBIO), &on);
    return static_cast<std::intptr_t>(made);
}

void switchOn(SOCKET socket, int option) {
    const BOOL on = TRUE;
    // NOLINTNEXTLINE(*-reinterpret-cast): how the system takes it
    ::setsockopt(socket, SOL_SOCKET, option, reinterpret_cast<const char*>(&on), sizeof on);
}

NetSocket::Wait waitFor(std::intptr_t native, long what, const Event& aborted, milliseconds limit) {
    const WSAEVENT happened = ::WSACreateEvent();
    if (happened == WSA_INVALID_EVENT)
        return NetSocket::Wait::TimedOut;
    ::WSAEventSelect(socketOf(native), happened, what | FD_CLOSE);
    const std::array<HANDLE, 2> waited = {// NOLINTNEXTLINE(performance-no-int-to-ptr): was a handle
                                          reinterpret_cast<HANDLE>(aborted.native()), happened};
    const DWORD result = ::WaitForMultipleObjects(static_cast<DWORD>(waited.size()), waited.data(),
                                                  FALSE, static_cast<DWORD>(limit.count()));
    ::WSAEventSelect(socketOf(native), nullptr, 0);
    ::WSACloseEvent(happened);
    if (result == WAIT_OBJECT_0)
        return NetSocket::Wait::Aborted;
    return result == WAIT_OBJECT_0 + 1 ? NetSocket::Wait::Ready : NetSocket::Wait::TimedOut;
}

}  // namespace

std::vector<NetAddress> lookUpAddresses(const std::string& host, std::uint16_t port,
                                        bool numericOnly) {
    if (!networkStarted())
        return {};
    addrinfo hints{};
    hints.ai_family = host.empty() ? AF_INET : AF_UNSPEC;
    hints.ai_socktype = SOCK_DGRAM;  // each address once
    hints.ai_flags = AI_PASSIVE | (numericOnly ? AI_NUMERICHOST : 0);
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
        ::closesocket(socketOf(native_));
}

NetSocket NetSocket::beginTcp(const NetAddress& to) {
    NetSocket made(openSocket(to, SOCK_STREAM));
    if (!made)
        return {};
    const SOCKET socket = socketOf(made.native_);
    tcp_keepalive alive{.onoff = 1, .keepalivetime = 10000, .keepaliveinterval = 5000};
    DWORD answered = 0;
    ::WSAIoctl(socket, SIO_KEEPALIVE_VALS, &alive, sizeof alive, nullptr, 0, &answered, nullptr,
               nullptr);
    const bool begun = ::connect(socket, socketAddress(to), static_cast<int>(to.size)) == 0 ||
                       ::WSAGetLastError() == WSAEWOULDBLOCK;
    return begun ? std::move(made) : NetSocket();
}

bool NetSocket::connected() const {
    int error = 0;
    int size = sizeof error;
    // NOLINTNEXTLINE(*-reinterpret-cast): how the system gives it
    auto* const into = reinterpret_cast<char*>(&error);
    if (::getsockopt(socketOf(native_), SOL_SOCKET, SO_ERROR, into, &size) != 0 || error != 0)
        return false;
    sockaddr_storage peer{};
    int peerSize = sizeof peer;
    // NOLINTNEXTLINE(*-reinterpret-cast): the bytes become one
    return ::getpeername(socketOf(native_), reinterpret_cast<sockaddr*>(&peer), &peerSize) == 0;
}

NetSocket NetSocket::bindUdp(const NetAddress& at) {
    NetSocket made(openSocket(at, SOCK_DGRAM));
    if (!made)
        return {};
    switchOn(socketOf(made.native_), SO_REUSEADDR);
    switchOn(socketOf(made.native_), SO_BROADCAST);
    const bool bound =
        ::bind(socketOf(made.native_), socketAddress(at), static_cast<int>(at.size)) == 0;
    return bound ? std::move(made) : NetSocket();
}

NetSocket NetSocket::connectUdp(const NetAddress& to) {
    NetSocket made(openSocket(to, SOCK_DGRAM));
    if (!made)
        return {};
    switchOn(socketOf(made.native_), SO_BROADCAST);
    const bool leads =
        ::connect(socketOf(made.native_), socketAddress(to), static_cast<int>(to.size)) == 0;
    return leads ? std::move(made) : NetSocket();
}

NetSocket::Wait NetSocket::waitReadable(Event& aborted, milliseconds limit) const {
    return waitFor(native_, FD_READ, aborted, limit);
}

NetSocket::Wait NetSocket::waitWritable(Event& aborted, milliseconds limit) const {
    return waitFor(native_, FD_WRITE | FD_CONNECT, aborted, limit);
}

NetSocket::Transfer NetSocket::receive(std::span<char> into) const {
    int type = 0;
    int size = sizeof type;
    // NOLINTNEXTLINE(*-reinterpret-cast): how the system gives it
    ::getsockopt(socketOf(native_), SOL_SOCKET, SO_TYPE, reinterpret_cast<char*>(&type), &size);
    const int count = ::recv(socketOf(native_), into.data(), static_cast<int>(into.size()), 0);
    if (count > 0)
        return {.error = kNoError, .count = static_cast<std::size_t>(count)};
    // A datagram that was cut is useless, one that was refused elsewhere is no news.
    const bool nothing = type == SOCK_DGRAM || (count < 0 && ::WSAGetLastError() == WSAEWOULDBLOCK);
    return {.error = nothing ? kNoError : kErrorDeviceFailure, .count = 0};
}

NetSocket::Transfer NetSocket::send(std::string_view bytes) const {
    const int count = ::send(socketOf(native_), bytes.data(), static_cast<int>(bytes.size()), 0);
    if (count >= 0)
        return {.error = kNoError, .count = static_cast<std::size_t>(count)};
    const bool busy = ::WSAGetLastError() == WSAEWOULDBLOCK;
    return {.error = busy ? kNoError : kErrorDeviceFailure, .count = 0};
}

std::uint16_t NetSocket::localPort() const {
    sockaddr_storage own{};
    int size = sizeof own;
    // NOLINTNEXTLINE(*-reinterpret-cast): the bytes become one
    if (::getsockname(socketOf(native_), reinterpret_cast<sockaddr*>(&own), &size) != 0)
        return 0;
    // Both families have the port at the same place.
    std::uint16_t port = 0;
    std::memcpy(&port, reinterpret_cast<const char*>(&own) + offsetof(sockaddr_in, sin_port),
                sizeof port);
    return ntohs(port);
}

}  // namespace korvel
