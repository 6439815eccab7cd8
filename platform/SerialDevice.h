#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace korvel {

/// A system's error number in Windows' numbering, which every back end speaks; 0 is success.
using SystemError = std::uint32_t;

inline constexpr SystemError kNoError = 0;
inline constexpr SystemError kErrorFileNotFound = 2;
inline constexpr SystemError kErrorTooManyOpenFiles = 4;
inline constexpr SystemError kErrorAccessDenied = 5;
inline constexpr SystemError kErrorNotEnoughMemory = 8;
inline constexpr SystemError kErrorDeviceFailure = 31;  ///< the device is gone or does not work
inline constexpr SystemError kErrorDeviceDoesNotExist = 55;
inline constexpr SystemError kErrorInvalidParameter = 87;  ///< for one, a speed it cannot run at
inline constexpr SystemError kErrorWriteStalled = 121;     ///< the device takes no more output
inline constexpr SystemError kErrorOperationAborted = 995;

/// How a line runs. Where no line is said to differ, the meaning of a field is its name's.
struct LineSettings {
    std::uint32_t baud = 0;
    std::uint8_t dataBits = 8;
    bool parityBit = false;
    bool twoStopBits = false;
    bool binary = true;
    bool parityCheck = false;
    bool ctsOutputFlow = false;
    bool dsrOutputFlow = false;
    bool dsrSensitivity = false;
    bool continueOnXoff = false;  ///< transmit on although XOFF was sent
    bool xonXoffOutput = false;
    bool xonXoffInput = false;
    bool replaceErrors = false;
    bool dropNuls = false;
    bool dtrOn = true;
    bool rtsOn = true;
    bool abortOnError = false;

    friend bool operator==(const LineSettings&, const LineSettings&) = default;
};

/// All in milliseconds. A read of n bytes ends when they are there, when the gap after a byte
/// exceeds the interval, or when multiplier × n + constant have passed since its start. An interval
/// of 0 is no limit on gaps; multiplier and constant both 0 are no limit on the whole.
struct SerialTimeouts {
    std::uint32_t readIntervalMs = 0;
    std::uint32_t readMultiplierMs = 0;
    std::uint32_t readConstantMs = 0;
    std::uint32_t writeMultiplierMs = 0;
    std::uint32_t writeConstantMs = 0;

    friend bool operator==(const SerialTimeouts&, const SerialTimeouts&) = default;
};

/// An open serial line, exclusively ours; destroying it closes the line. One thread at a time may
/// use it, save for abort().
class SerialDevice {
 public:
    struct Transfer {
        SystemError error = kNoError;
        std::size_t count = 0;
    };

    SerialDevice() = default;
    SerialDevice(const SerialDevice&) = delete;
    SerialDevice& operator=(const SerialDevice&) = delete;
    virtual ~SerialDevice() = default;

    [[nodiscard]] virtual SystemError readLineSettings(LineSettings& settings) = 0;
    [[nodiscard]] virtual SystemError applyLineSettings(const LineSettings& settings) = 0;
    virtual SystemError setTimeouts(const SerialTimeouts& timeouts) = 0;

    /// Blocks as the timeouts say; running into one is no error. An unplugged device answers
    /// kErrorDeviceFailure.
    virtual Transfer read(std::span<char> into) = 0;
    /// Whether a read waits until something arrives, however long that takes: then there need be no
    /// pause between two reads.
    [[nodiscard]] virtual bool waitsForBytes() const { return false; }

    /// Blocks until the device has taken the bytes, a write timeout passes or abort() is called. A
    /// back end may give up earlier, with kErrorWriteStalled, on a device that takes nothing.
    virtual Transfer write(std::string_view bytes) = 0;

    /// Clears the error state that a failed transfer left behind.
    virtual void clearError() = 0;

    /// Ends the read or write in progress, and every later one, at once with
    /// kErrorOperationAborted. From any thread; may be repeated.
    virtual void abort() = 0;
};

/// Opens `devicePath` ("\\.\" followed by the port's name) for reading and writing, exclusively;
/// null and the error on failure.
using SerialDeviceOpener =
    std::function<std::unique_ptr<SerialDevice>(std::string_view devicePath, SystemError& error)>;

/// The system's serial lines. A name is tried as it stands and, when there is no such file and it
/// ends with a colon, once more without it.
///
/// Where the system has no COM ports, "COM<n>" is the link `com<n>` in `portsFolder` if that exists
/// (whether or not it leads anywhere now), else the n-th of the system's serial devices: USB first,
/// then built-in ones that have hardware. A name that begins with "/dev/" is that device.
SerialDeviceOpener systemSerialDeviceOpener(std::filesystem::path portsFolder);

/// Lines that are chosen by their own names, since they are no COM ports: bound Bluetooth ones.
/// None where these have numbers like all others.
std::vector<std::string> serialLinesWithNames();

}  // namespace korvel
