#include "platform/SerialDevice.h"

namespace korvel {

SerialDeviceOpener systemSerialDeviceOpener(std::filesystem::path portsFolder) {
    return [folder = std::move(portsFolder)](std::string_view, SystemError& error) {
        error = kErrorFileNotFound;
        return std::unique_ptr<SerialDevice>();
    };
}

}  // namespace korvel
