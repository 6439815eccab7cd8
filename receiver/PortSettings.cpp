#include "receiver/PortSettings.h"

#include <algorithm>

#include "base/TextNumbers.h"

namespace korvel {

PortSettings PortSettings::of(std::string_view name, std::string_view speed) {
    std::string device(name);
    if (!device.ends_with(':'))
        device += ':';
    return {std::move(device), std::string(speed), ",N,8,1"};
}

std::optional<PortSettings> PortSettings::parse(std::string_view text) {
    if (text.empty())
        return std::nullopt;
    const std::string_view device = text.substr(0, text.find(','));
    text.remove_prefix(std::min(device.size() + 1, text.size()));
    const std::string_view speed = text.substr(0, text.find(','));
    return PortSettings{std::string(device), std::string(speed),
                        std::string(text.substr(speed.size()))};
}

std::string PortSettings::format() const {
    return speed.empty() && rest.empty() ? device : device + "," + speed + rest;
}

std::string PortSettings::name() const { return device.substr(0, device.find(':')); }

int PortSettings::baud() const { return std::max(ParseInt(speed), 0); }

std::string PortSettings::label() const { return speed.empty() ? name() : name() + " " + speed; }

}  // namespace korvel
