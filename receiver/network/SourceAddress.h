#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace korvel {

/// A receiver in the network, in the text form of the settings: "tcp://HOST:PORT",
/// "udp://[ADDRESS]:PORT", "gpsd://HOST[:PORT]" or "gdl90://[ADDRESS][:PORT]". An IPv6 address
/// stands in brackets.
struct SourceAddress {
    enum class Kind {
        Tcp,    ///< lines of a connection
        Udp,    ///< lines of datagrams sent to this machine
        Gpsd,   ///< what gpsd relays
        Gdl90,  ///< binary messages in datagrams sent to this machine
    };

    Kind kind = Kind::Tcp;
    std::string host;  ///< empty, where it listens, for every address of this machine
    std::uint16_t port = 0;

    /// Nothing for a text that is no source.
    static std::optional<SourceAddress> parse(std::string_view text);
    /// What the pilot knows it by, and what parse() reads again.
    [[nodiscard]] std::string label() const;

    friend bool operator==(const SourceAddress&, const SourceAddress&) = default;
};

}  // namespace korvel
