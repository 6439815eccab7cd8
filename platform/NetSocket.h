#pragma once

#include <array>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/Event.h"
#include "platform/SerialDevice.h"

namespace korvel {

/// Where a socket leads to or listens at: the system's own form of an IPv4 or IPv6 address and a
/// port.
struct NetAddress {
    static constexpr std::size_t kMostBytes = 32;

    std::array<std::byte, kMostBytes> bytes{};
    std::size_t size = 0;
};

/// The addresses of a host, the preferred one first; none when there is no such host. An empty host
/// is every address of this machine. A name may take the network a long time, which a caller cannot
/// cut short; `numericOnly` answers at once, and to a name with nothing.
std::vector<NetAddress> lookUpAddresses(const std::string& host, std::uint16_t port,
                                        bool numericOnly);

/// A network socket that never waits unless it is told to, and then as long as it is told. One
/// thread at a time; what ends a wait early may be signalled from any.
class NetSocket {
 public:
    enum class Wait {
        Ready,  ///< or failed, which the next transfer tells
        TimedOut,
        Aborted,
    };
    using Transfer = SerialDevice::Transfer;

    /// None.
    NetSocket() = default;
    NetSocket(NetSocket&& other) noexcept : native_(std::exchange(other.native_, kNone)) {}
    NetSocket& operator=(NetSocket&& other) noexcept {
        std::swap(native_, other.native_);
        return *this;
    }
    NetSocket(const NetSocket&) = delete;
    NetSocket& operator=(const NetSocket&) = delete;
    ~NetSocket();

    explicit operator bool() const { return native_ != kNone; }

    /// Begins to connect; the socket is writable once that has an end, and connected() tells which.
    /// None when it cannot even begin. A peer that vanishes without a word is noticed in the end.
    static NetSocket beginTcp(const NetAddress& to);
    /// Whether the connection stands.
    [[nodiscard]] bool connected() const;
    /// Takes datagrams sent to this address, broadcast ones among them, beside other programs that
    /// do. None when it cannot.
    static NetSocket bindUdp(const NetAddress& at);
    /// Sends datagrams there, to a whole network too. None when it cannot.
    static NetSocket connectUdp(const NetAddress& to);

    /// Until it can be read, or written.
    Wait waitReadable(Event& aborted, std::chrono::milliseconds limit) const;
    Wait waitWritable(Event& aborted, std::chrono::milliseconds limit) const;

    /// What has arrived, a datagram at a time; nothing when nothing has. A peer that has closed the
    /// connection is kErrorDeviceFailure.
    Transfer receive(std::span<char> into) const;
    /// As much as the system takes now.
    Transfer send(std::string_view bytes) const;

    /// The port that it is bound to, 0 when that is unknown.
    [[nodiscard]] std::uint16_t localPort() const;

 private:
    static constexpr std::intptr_t kNone = -1;

    explicit NetSocket(std::intptr_t native) : native_(native) {}

    std::intptr_t native_ = kNone;  // a descriptor, or a SOCKET
};

}  // namespace korvel
