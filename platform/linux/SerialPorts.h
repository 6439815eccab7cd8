#pragma once

#include <filesystem>
#include <optional>
#include <string_view>
#include <vector>

namespace korvel {

/// Where serial devices are looked for.
struct SerialFolders {
    std::filesystem::path ports;  ///< the user's links `com<n>`
    std::filesystem::path sysfs = "/sys/class/tty";
    std::filesystem::path dev = "/dev";
};

/// The serial devices that are there: USB ones by the socket that they are plugged into, so that
/// the order outlives a change of the numbers that the system hands out; then built-in ones behind
/// which there is hardware, by name and number.
std::vector<std::filesystem::path> listSerialDevices(const SerialFolders& folders);

/// The Bluetooth lines that are bound to a device, by number. They come and go with a radio, so
/// they are no COM ports: opening one that is out of reach takes seconds.
std::vector<std::filesystem::path> listBluetoothLines(const SerialFolders& folders);

/// The device file that a port's name stands for, as told at systemSerialDeviceOpener(). Nothing
/// when no device goes by that name.
std::optional<std::filesystem::path> serialDeviceFile(std::string_view name,
                                                      const SerialFolders& folders);

}  // namespace korvel
