#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace korvel {

/// A serial port and its speed, in the text form of the settings: "COM3:,9600,N,8,1". Any text that
/// begins with a device comes back from format() as it was given to parse().
struct PortSettings {
    std::string device;  ///< as it is opened, usually with a colon: "COM3:"
    std::string speed;   ///< as written; which ones there are is for the port to say
    std::string rest;    ///< what stands behind the speed, its comma included

    /// `name` with or without the colon; 8-N-1 as everywhere.
    static PortSettings of(std::string_view name, std::string_view speed);
    /// Nothing for an empty text: the port is searched for.
    static std::optional<PortSettings> parse(std::string_view text);
    [[nodiscard]] std::string format() const;

    /// Without the colon: "COM3".
    [[nodiscard]] std::string name() const;
    /// Bits per second, 0 when the speed does not begin with a number above 0.
    [[nodiscard]] int baud() const;
    /// What the pilot reads: "COM3 9600".
    [[nodiscard]] std::string label() const;

    friend bool operator==(const PortSettings&, const PortSettings&) = default;
};

}  // namespace korvel
