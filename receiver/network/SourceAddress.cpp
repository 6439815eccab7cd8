#include "receiver/network/SourceAddress.h"

#include <algorithm>
#include <array>

#include "base/Ascii.h"
#include "base/TextNumbers.h"

namespace korvel {
namespace {

using Kind = SourceAddress::Kind;

struct Scheme {
    std::string_view beginning;
    Kind kind;
    std::uint16_t usualPort;  ///< 0: it has to be stated
    bool needsHost;
};
constexpr std::array<Scheme, 4> kSchemes = {{{"tcp://", Kind::Tcp, 0, true},
                                             {"udp://", Kind::Udp, 0, false},
                                             {"gpsd://", Kind::Gpsd, 2947, true},
                                             {"gdl90://", Kind::Gdl90, 4000, false}}};

bool isHost(std::string_view host) {
    constexpr std::size_t kMostLength = 253;
    return host.size() <= kMostLength && std::ranges::all_of(host, [](char c) {
               return (c >= '0' && c <= '9') || (upperAscii(c) >= 'A' && upperAscii(c) <= 'Z') ||
                      std::string_view(".-_:%").find(c) != std::string_view::npos;
           });
}

/// 1 to 65535 and nothing else.
std::optional<std::uint16_t> portOf(std::string_view digits) {
    constexpr std::size_t kMostDigits = 5;
    constexpr int kMostPort = 65535;
    const bool isNumber = !digits.empty() && digits.size() <= kMostDigits &&
                          std::ranges::all_of(digits, [](char c) { return c >= '0' && c <= '9'; });
    const int port = isNumber ? ParseInt(digits) : 0;
    return port >= 1 && port <= kMostPort ? std::optional(static_cast<std::uint16_t>(port))
                                          : std::nullopt;
}

/// "host", "host:port", "[host]:port", ":port".
std::optional<SourceAddress> hostAndPort(std::string_view text, const Scheme& scheme) {
    SourceAddress address{.kind = scheme.kind, .host = {}, .port = scheme.usualPort};
    std::string_view rest;
    if (text.starts_with('[')) {
        const std::size_t end = text.find(']');
        if (end == std::string_view::npos)
            return std::nullopt;
        address.host = text.substr(1, end - 1);
        rest = text.substr(end + 1);
    } else {
        const std::size_t colon = text.find(':');
        address.host = text.substr(0, colon);
        rest = colon == std::string_view::npos ? std::string_view() : text.substr(colon);
    }
    if (!rest.empty()) {
        const auto port = rest.starts_with(':') ? portOf(rest.substr(1)) : std::nullopt;
        if (!port)
            return std::nullopt;
        address.port = *port;
    }
    const bool isWhole =
        address.port != 0 && isHost(address.host) && (!scheme.needsHost || !address.host.empty());
    return isWhole ? std::optional(std::move(address)) : std::nullopt;
}

}  // namespace

std::optional<SourceAddress> SourceAddress::parse(std::string_view text) {
    text = trimmed(text);
    for (const Scheme& scheme : kSchemes)
        if (startsWithIgnoringCase(text, scheme.beginning))
            return hostAndPort(text.substr(scheme.beginning.size()), scheme);
    return std::nullopt;
}

std::string SourceAddress::label() const {
    const auto* const scheme = std::ranges::find(kSchemes, kind, &Scheme::kind);
    const bool isIpv6 = host.find(':') != std::string::npos;
    return std::string(scheme->beginning) + (isIpv6 ? "[" + host + "]" : host) + ":" +
           formatInt(port);
}

}  // namespace korvel
