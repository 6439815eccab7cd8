#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace korvel {

/// A serial port and its speed as the settings hold them: "COM3:,9600,N,8,1".
struct PortSettings {
    std::string name;
    int baud = 0;

    friend bool operator==(const PortSettings&, const PortSettings&) = default;
};

/// Nothing for an empty text (the port is searched for) and for one that is not of that form.
std::optional<PortSettings> parsePortSettings(std::string_view text);

std::string formatPortSettings(const PortSettings& settings);

}  // namespace korvel
