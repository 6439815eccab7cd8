#include "cockpit/PortSettings.h"

#include <charconv>

namespace korvel {

std::optional<PortSettings> parsePortSettings(std::string_view text) {
    const std::size_t colon = text.find(":,");
    if (colon == std::string_view::npos || colon == 0)
        return std::nullopt;
    PortSettings settings{std::string(text.substr(0, colon)), 0};
    const char* const speed = text.data() + colon + 2;
    const auto [end, error] = std::from_chars(speed, text.data() + text.size(), settings.baud);
    if (error != std::errc() || settings.baud <= 0)
        return std::nullopt;
    return settings;
}

std::string formatPortSettings(const PortSettings& settings) {
    return settings.name + ":," + std::to_string(settings.baud) + ",N,8,1";
}

}  // namespace korvel
