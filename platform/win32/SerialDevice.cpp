#include "platform/SerialDevice.h"

#include <atomic>
#include <string>
#include <utility>
#include <windows.h>

#include "platform/win32/Handle.h"
#include "platform/win32/PipeDevice.h"
#include "platform/win32/WideText.h"

namespace korvel {
namespace {

constexpr std::string_view kPipePrefix = R"(\\.\pipe\)";

/// A COM port, opened for plain synchronous transfers.
class WindowsSerialDevice final : public SerialDevice {
 public:
    explicit WindowsSerialDevice(Handle port) : port_(std::move(port)) {}

    SystemError readLineSettings(LineSettings& settings) override;
    SystemError applyLineSettings(const LineSettings& settings) override;
    SystemError setTimeouts(const SerialTimeouts& timeouts) override;
    Transfer read(std::span<char> into) override;
    Transfer write(std::string_view bytes) override;

    void clearError() override {
        DWORD errors = 0;
        ClearCommError(port_.get(), &errors, nullptr);
    }

    // The flag serves transfers that have not begun; one between looking at it and beginning needs
    // the call to be repeated.
    void abort() override {
        aborted_ = true;
        CancelIoEx(port_.get(), nullptr);
    }

 private:
    static SystemError resultOf(BOOL done) { return done == FALSE ? GetLastError() : kNoError; }
    bool isThere() const;

    Handle port_;
    std::atomic<bool> aborted_ = false;
};

SystemError WindowsSerialDevice::readLineSettings(LineSettings& settings) {
    DCB dcb{};
    dcb.DCBlength = sizeof dcb;
    if (GetCommState(port_.get(), &dcb) == FALSE)
        return GetLastError();
    settings = {.baud = dcb.BaudRate,
                .dataBits = dcb.ByteSize,
                .parityBit = dcb.Parity != NOPARITY,
                .twoStopBits = dcb.StopBits == TWOSTOPBITS,
                .binary = dcb.fBinary != 0,
                .parityCheck = dcb.fParity != 0,
                .ctsOutputFlow = dcb.fOutxCtsFlow != 0,
                .dsrOutputFlow = dcb.fOutxDsrFlow != 0,
                .dsrSensitivity = dcb.fDsrSensitivity != 0,
                .continueOnXoff = dcb.fTXContinueOnXoff != 0,
                .xonXoffOutput = dcb.fOutX != 0,
                .xonXoffInput = dcb.fInX != 0,
                .replaceErrors = dcb.fErrorChar != 0,
                .dropNuls = dcb.fNull != 0,
                .dtrOn = dcb.fDtrControl == DTR_CONTROL_ENABLE,
                .rtsOn = dcb.fRtsControl == RTS_CONTROL_ENABLE,
                .abortOnError = dcb.fAbortOnError != 0};
    return kNoError;
}

SystemError WindowsSerialDevice::applyLineSettings(const LineSettings& settings) {
    DCB dcb{};
    dcb.DCBlength = sizeof dcb;
    if (GetCommState(port_.get(), &dcb) == FALSE)
        return GetLastError();
    dcb.BaudRate = settings.baud;
    dcb.ByteSize = settings.dataBits;
    dcb.Parity = settings.parityBit ? EVENPARITY : NOPARITY;
    dcb.StopBits = settings.twoStopBits ? TWOSTOPBITS : ONESTOPBIT;
    dcb.fBinary = settings.binary;
    dcb.fParity = settings.parityCheck;
    dcb.fOutxCtsFlow = settings.ctsOutputFlow;
    dcb.fOutxDsrFlow = settings.dsrOutputFlow;
    dcb.fDsrSensitivity = settings.dsrSensitivity;
    dcb.fTXContinueOnXoff = settings.continueOnXoff;
    dcb.fOutX = settings.xonXoffOutput;
    dcb.fInX = settings.xonXoffInput;
    dcb.fErrorChar = settings.replaceErrors;
    dcb.fNull = settings.dropNuls;
    dcb.fDtrControl = settings.dtrOn ? DTR_CONTROL_ENABLE : DTR_CONTROL_DISABLE;
    dcb.fRtsControl = settings.rtsOn ? RTS_CONTROL_ENABLE : RTS_CONTROL_DISABLE;
    dcb.fAbortOnError = settings.abortOnError;
    return resultOf(SetCommState(port_.get(), &dcb));
}

SystemError WindowsSerialDevice::setTimeouts(const SerialTimeouts& timeouts) {
    COMMTIMEOUTS system{};
    if (GetCommTimeouts(port_.get(), &system) == FALSE)
        return GetLastError();
    system.ReadIntervalTimeout = timeouts.readIntervalMs;
    system.ReadTotalTimeoutMultiplier = timeouts.readMultiplierMs;
    system.ReadTotalTimeoutConstant = timeouts.readConstantMs;
    system.WriteTotalTimeoutMultiplier = timeouts.writeMultiplierMs;
    system.WriteTotalTimeoutConstant = timeouts.writeConstantMs;
    return resultOf(SetCommTimeouts(port_.get(), &system));
}

/// How an adapter that was pulled out answers depends on its driver.
SystemError transferError(SystemError error) {
    switch (error) {
        case ERROR_ACCESS_DENIED:
        case ERROR_INVALID_HANDLE:
        case ERROR_NOT_READY:
        case ERROR_BAD_COMMAND:
        case ERROR_FILE_NOT_FOUND:
        case ERROR_BROKEN_PIPE:
        case ERROR_IO_DEVICE:
        case ERROR_DEVICE_NOT_CONNECTED:
        case ERROR_DEVICE_REMOVED:
            return kErrorDeviceFailure;
        default:
            return error;
    }
}

/// Some drivers let reads from what is gone run into their timeout, as if it had just been silent.
bool WindowsSerialDevice::isThere() const {
    DWORD errors = 0;
    COMSTAT status{};
    return ClearCommError(port_.get(), &errors, &status) != FALSE;
}

SerialDevice::Transfer WindowsSerialDevice::read(std::span<char> into) {
    if (aborted_)
        return {.error = kErrorOperationAborted, .count = 0};
    DWORD count = 0;
    const SystemError error = resultOf(
        ReadFile(port_.get(), into.data(), static_cast<DWORD>(into.size()), &count, nullptr));
    if (error == kNoError && count == 0 && !isThere())
        return {.error = kErrorDeviceFailure, .count = 0};
    return {.error = transferError(error), .count = count};
}

SerialDevice::Transfer WindowsSerialDevice::write(std::string_view bytes) {
    if (aborted_)
        return {.error = kErrorOperationAborted, .count = 0};
    DWORD count = 0;
    const SystemError error = resultOf(
        WriteFile(port_.get(), bytes.data(), static_cast<DWORD>(bytes.size()), &count, nullptr));
    return {.error = transferError(error), .count = count};
}

std::unique_ptr<SerialDevice> openPort(const std::string& path, SystemError& error) {
    if (path.starts_with(kPipePrefix))
        return openPipeDevice(path, error);
    Handle port(CreateFileW(wideText(path).c_str(), GENERIC_READ | GENERIC_WRITE, 0, nullptr,
                            OPEN_EXISTING, 0, nullptr));
    if (!port) {
        error = GetLastError();
        return nullptr;
    }
    error = kNoError;
    return std::make_unique<WindowsSerialDevice>(std::move(port));
}

}  // namespace

SerialDeviceOpener systemSerialDeviceOpener(std::filesystem::path /*portsFolder*/) {
    return [](std::string_view devicePath, SystemError& error) {
        std::string path(devicePath);
        auto device = openPort(path, error);
        if (device == nullptr && error == kErrorFileNotFound && path.ends_with(':')) {
            path.pop_back();
            device = openPort(path, error);
        }
        return device;
    };
}

std::vector<std::string> serialLinesWithNames() { return {}; }

}  // namespace korvel
