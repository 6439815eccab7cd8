#include "platform/linux/SerialPorts.h"

#include <algorithm>
#include <charconv>
#include <string>
#include <system_error>
#include <tuple>
#include <utility>

#include "base/Ascii.h"
#include "platform/FileIo.h"

namespace korvel {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kDigits = "0123456789";

struct Found {
    bool builtIn = false;
    std::string place;  ///< USB: the device's place in the tree of buses; built-in: the kind's name
    int number = 0;
    fs::path device;

    auto order() const { return std::tie(builtIn, place, number); }
};

std::optional<int> parseNumber(std::string_view digits) {
    int number = 0;
    const char* const end = digits.data() + digits.size();
    const auto [stop, error] = std::from_chars(digits.data(), end, number);
    return error == std::errc() && stop == end ? std::optional(number) : std::nullopt;
}

/// The system makes device files for ports that might be; only where the type of the controller is
/// known (not 0) is there one.
bool hasController(const fs::path& entry) {
    const auto type = readWholeFile(entry / "type", 16);
    return type && !type->empty() && type->front() != '0' && type->front() != '\n';
}

std::optional<Found> examine(const fs::path& entry, const fs::path& dev) {
    const std::string name = entry.filename().string();
    const std::size_t kindLength = name.find_last_not_of(kDigits) + 1;
    const auto number = parseNumber(std::string_view(name).substr(kindLength));
    std::error_code error;
    const fs::path place = fs::canonical(entry / "device", error);
    if (error || !number)
        return std::nullopt;
    const std::string kind = name.substr(0, kindLength);
    if (kind == "ttyUSB" || kind == "ttyACM") {
        // An adapter's own name for its port comes last in the place and may change with it.
        const fs::path socket = place.filename() == name ? place.parent_path() : place;
        return Found{
            .builtIn = false, .place = socket.string(), .number = *number, .device = dev / name};
    }
    if (!hasController(entry))
        return std::nullopt;
    return Found{.builtIn = true, .place = kind, .number = *number, .device = dev / name};
}

/// The n of "COM<n>" in any case, else nothing.
std::optional<int> comNumber(std::string_view name) {
    constexpr std::string_view kCom = "COM";
    const bool named = name.size() > kCom.size() && startsWithIgnoringCase(name, kCom);
    return named ? parseNumber(name.substr(kCom.size())) : std::nullopt;
}

}  // namespace

std::vector<fs::path> listSerialDevices(const SerialFolders& folders) {
    std::vector<Found> found;
    std::error_code error;
    fs::directory_iterator entry(folders.sysfs, error);
    while (!error && entry != fs::directory_iterator()) {
        if (auto device = examine(entry->path(), folders.dev))
            found.push_back(std::move(*device));
        entry.increment(error);
    }
    std::sort(found.begin(), found.end(),
              [](const Found& a, const Found& b) { return a.order() < b.order(); });
    std::vector<fs::path> devices;
    devices.reserve(found.size());
    for (Found& device : found)
        devices.push_back(std::move(device.device));
    return devices;
}

std::vector<fs::path> listBluetoothLines(const SerialFolders& folders) {
    constexpr std::string_view kKind = "rfcomm";
    std::vector<std::pair<int, fs::path>> found;
    std::error_code error;
    for (fs::directory_iterator entry(folders.sysfs, error);
         !error && entry != fs::directory_iterator(); entry.increment(error)) {
        const std::string name = entry->path().filename().string();
        if (!name.starts_with(kKind))
            continue;
        if (const auto number = parseNumber(std::string_view(name).substr(kKind.size())))
            found.emplace_back(*number, folders.dev / name);
    }
    std::ranges::sort(found);
    std::vector<fs::path> lines;
    lines.reserve(found.size());
    for (auto& [number, device] : found)
        lines.push_back(std::move(device));
    return lines;
}

std::optional<fs::path> serialDeviceFile(std::string_view name, const SerialFolders& folders) {
    if (name.starts_with("/dev/"))
        return fs::path(name);
    const auto number = comNumber(name);
    if (!number || *number < 1)
        return std::nullopt;
    const fs::path link = folders.ports / ("com" + std::to_string(*number));
    std::error_code error;
    if (!folders.ports.empty() &&
        fs::symlink_status(link, error).type() != fs::file_type::not_found)
        return link;
    const auto devices = listSerialDevices(folders);
    const auto index = static_cast<std::size_t>(*number) - 1;
    return index < devices.size() ? std::optional(devices[index]) : std::nullopt;
}

}  // namespace korvel
