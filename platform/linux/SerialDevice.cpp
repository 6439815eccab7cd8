#include "platform/SerialDevice.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <fcntl.h>
#include <optional>
#include <poll.h>
#include <string>
#include <sys/file.h>
#include <sys/ioctl.h>
#include <termios.h>
#include <unistd.h>
#include <utility>

#include "platform/Event.h"
#include "platform/ReadTimer.h"
#include "platform/linux/FileDescriptor.h"
#include "platform/linux/SerialPorts.h"
#include "platform/linux/TermiosLine.h"

namespace korvel {
namespace {

using std::chrono::milliseconds;
using std::chrono::steady_clock;

constexpr std::string_view kDevicePrefix = R"(\\.\)";

/// A device that takes no byte for so long is given up: while it is waited for, nothing is read.
constexpr milliseconds kWriteStall{5000};

SystemError openError(int number) {
    switch (number) {
        case ENOENT:
        case ENOTDIR:
        case ELOOP:
            return kErrorFileNotFound;
        case EACCES:
        case EPERM:
        case EBUSY:
        case EWOULDBLOCK:
            return kErrorAccessDenied;
        case ENXIO:
        case ENODEV:
        case EIO:
            return kErrorDeviceDoesNotExist;
        case EMFILE:
        case ENFILE:
            return kErrorTooManyOpenFiles;
        case ENOMEM:
            return kErrorNotEnoughMemory;
        default:
            return kErrorDeviceFailure;
    }
}

/// Of an open device; all that says "gone" is one.
SystemError transferError(int number) {
    switch (number) {
        case 0:
            return kNoError;
        case EINVAL:
            return kErrorInvalidParameter;
        case ENOMEM:
            return kErrorNotEnoughMemory;
        default:
            return kErrorDeviceFailure;
    }
}

enum class Wait { Ready, HungUp, TimedOut, Aborted };

class PosixSerialDevice final : public SerialDevice {
 public:
    PosixSerialDevice(FileDescriptor fd, Event aborted)
        : fd_(std::move(fd)), aborted_(std::move(aborted)) {}
    PosixSerialDevice(const PosixSerialDevice&) = delete;
    PosixSerialDevice& operator=(const PosixSerialDevice&) = delete;
    ~PosixSerialDevice() override {
        // Closing would wait for output that the device does not take, half a minute long.
        ::tcflush(fd_.get(), TCOFLUSH);
        ::ioctl(fd_.get(), TIOCNXCL);  // would last while anybody else holds the device open
    }

    SystemError readLineSettings(LineSettings& settings) override {
        return transferError(readTermiosLine(fd_.get(), settings));
    }

    SystemError applyLineSettings(const LineSettings& settings) override {
        return transferError(applyTermiosLine(fd_.get(), settings));
    }

    SystemError setTimeouts(const SerialTimeouts& timeouts) override {
        timeouts_ = timeouts;
        return kNoError;
    }

    Transfer read(std::span<char> into) override;
    Transfer write(std::string_view bytes) override;
    void clearError() override {}
    void abort() override { aborted_.set(); }

 private:
    Wait waitFor(short what, std::optional<milliseconds> limit);

    FileDescriptor fd_;
    SerialTimeouts timeouts_;
    Event aborted_;
};

Wait PosixSerialDevice::waitFor(short what, std::optional<milliseconds> limit) {
    std::array<pollfd, 2> waited = {
        {{.fd = fd_.get(), .events = what, .revents = 0},
         {.fd = static_cast<int>(aborted_.native()), .events = POLLIN, .revents = 0}}};
    const int ready =
        ::poll(waited.data(), waited.size(), limit ? static_cast<int>(limit->count()) : -1);
    if (waited[1].revents != 0)
        return Wait::Aborted;
    if (ready == 0)
        return Wait::TimedOut;
    const bool gone = (waited[0].revents & (POLLHUP | POLLERR | POLLNVAL)) != 0;
    return gone ? Wait::HungUp : Wait::Ready;  // an interrupted wait counts as ready: try again
}

/// What came before an error is returned without it; the next read meets the error again.
SerialDevice::Transfer PosixSerialDevice::read(std::span<char> into) {
    ReadTimer timer(timeouts_, into.size(), steady_clock::now());
    std::size_t count = 0;
    SystemError error = aborted_.isSet() ? kErrorOperationAborted : kNoError;
    bool hungUp = false;
    while (count < into.size() && error == kNoError) {
        const ssize_t got = ::read(fd_.get(), into.data() + count, into.size() - count);
        if (got > 0) {
            count += static_cast<std::size_t>(got);
            timer.noteBytes(steady_clock::now());
            continue;
        }
        if (got == 0 || hungUp || (errno != EAGAIN && errno != EINTR)) {
            error = got < 0 && !hungUp ? transferError(errno) : kErrorDeviceFailure;
            break;
        }
        const auto left = timer.left(steady_clock::now());
        const Wait wait = waitFor(POLLIN, left);
        if (wait == Wait::TimedOut)
            break;
        hungUp = wait == Wait::HungUp;
        error = wait == Wait::Aborted ? kErrorOperationAborted : kNoError;
    }
    return {.error = count > 0 ? kNoError : error, .count = count};
}

SerialDevice::Transfer PosixSerialDevice::write(std::string_view bytes) {
    std::optional<steady_clock::time_point> deadline;
    if (timeouts_.writeMultiplierMs != 0 || timeouts_.writeConstantMs != 0) {
        deadline = steady_clock::now() + milliseconds(timeouts_.writeMultiplierMs * bytes.size() +
                                                      timeouts_.writeConstantMs);
    }
    Transfer sent;
    while (sent.count < bytes.size() && sent.error == kNoError) {
        milliseconds limit = kWriteStall;
        if (deadline) {
            const auto left = std::chrono::ceil<milliseconds>(*deadline - steady_clock::now());
            limit = std::clamp(left, milliseconds(0), kWriteStall);
        }
        switch (waitFor(POLLOUT, limit)) {
            case Wait::Aborted:
                return {.error = kErrorOperationAborted, .count = sent.count};
            case Wait::HungUp:
                return {.error = kErrorDeviceFailure, .count = sent.count};
            case Wait::TimedOut:
                return {.error = deadline ? kNoError : kErrorWriteStalled, .count = sent.count};
            case Wait::Ready:
                break;
        }
        const ssize_t count =
            ::write(fd_.get(), bytes.data() + sent.count, bytes.size() - sent.count);
        if (count > 0)
            sent.count += static_cast<std::size_t>(count);
        else if (count < 0 && errno != EAGAIN && errno != EINTR)
            sent.error = transferError(errno);
    }
    return sent;
}

/// Ours alone: TIOCEXCL keeps other users' programs out, the lock those of a superuser and our own.
std::unique_ptr<SerialDevice> openExclusively(const std::filesystem::path& file,
                                              SystemError& error) {
    FileDescriptor fd(::open(file.c_str(), O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC));
    if (!fd || ::flock(fd.get(), LOCK_EX | LOCK_NB) != 0) {
        error = openError(errno);
        return nullptr;
    }
    ::ioctl(fd.get(), TIOCEXCL);  // fails for what is no terminal, which the line settings reveal
    Event aborted(Event::Reset::Manual);
    if (!aborted) {
        error = kErrorTooManyOpenFiles;
        return nullptr;
    }
    error = kNoError;
    return std::make_unique<PosixSerialDevice>(std::move(fd), std::move(aborted));
}

std::unique_ptr<SerialDevice> openNamed(std::string_view name, const SerialFolders& folders,
                                        SystemError& error) {
    const auto file = serialDeviceFile(name, folders);
    if (!file) {
        error = kErrorFileNotFound;
        return nullptr;
    }
    return openExclusively(*file, error);
}

}  // namespace

SerialDeviceOpener systemSerialDeviceOpener(std::filesystem::path portsFolder) {
    return [folders = SerialFolders{.ports = std::move(portsFolder)}](std::string_view devicePath,
                                                                      SystemError& error) {
        std::string_view name = devicePath;
        if (name.starts_with(kDevicePrefix))
            name.remove_prefix(kDevicePrefix.size());
        auto device = openNamed(name, folders, error);
        if (device == nullptr && error == kErrorFileNotFound && name.ends_with(':')) {
            name.remove_suffix(1);
            device = openNamed(name, folders, error);
        }
        return device;
    };
}

std::vector<std::string> serialLinesWithNames() {
    std::vector<std::string> names;
    for (const std::filesystem::path& line : listBluetoothLines({}))
        names.push_back(line.string());
    return names;
}

}  // namespace korvel
