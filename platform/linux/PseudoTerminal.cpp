#include "platform/PseudoTerminal.h"

#include <array>
#include <cerrno>
#include <chrono>
#include <cstdlib>
#include <fcntl.h>
#include <poll.h>
#include <termios.h>
#include <unistd.h>
#include <utility>

#include "platform/linux/FileDescriptor.h"

namespace korvel {
namespace {

using std::chrono::milliseconds;
using std::chrono::steady_clock;

/// The master end. The slave end is held open as well, so that the line neither hangs up between
/// two openings of the port nor loses its raw mode.
class PosixPseudoTerminal final : public PseudoTerminal {
 public:
    PosixPseudoTerminal(FileDescriptor master, FileDescriptor slave, std::string name)
        : master_(std::move(master)), slave_(std::move(slave)), name_(std::move(name)) {}

    std::string deviceName() const override { return name_ + ":"; }

    bool write(std::string_view bytes, milliseconds timeout) override {
        const auto deadline = steady_clock::now() + timeout;
        while (!bytes.empty()) {
            if (!waitFor(POLLOUT, deadline))
                return false;
            const ssize_t count = ::write(master_.get(), bytes.data(), bytes.size());
            if (count < 0 && errno != EAGAIN && errno != EINTR)
                return false;
            bytes.remove_prefix(count > 0 ? static_cast<std::size_t>(count) : 0);
        }
        return true;
    }

    std::size_t read(std::span<char> into, milliseconds timeout) override {
        const auto deadline = steady_clock::now() + timeout;
        while (waitFor(POLLIN, deadline)) {
            const ssize_t count = ::read(master_.get(), into.data(), into.size());
            if (count > 0)
                return static_cast<std::size_t>(count);
            if (count == 0 || (errno != EAGAIN && errno != EINTR))
                return 0;
        }
        return 0;
    }

    void unplug() override {
        slave_.reset();
        master_.reset();
    }

 private:
    bool waitFor(short what, steady_clock::time_point deadline) const {
        if (!master_)
            return false;
        pollfd waited{.fd = master_.get(), .events = what, .revents = 0};
        const auto left = std::chrono::ceil<milliseconds>(deadline - steady_clock::now());
        const int ready = ::poll(&waited, 1, left.count() > 0 ? static_cast<int>(left.count()) : 0);
        return ready > 0 || (ready < 0 && errno == EINTR);
    }

    FileDescriptor master_;
    FileDescriptor slave_;
    std::string name_;
};

bool makeRaw(int fd) {
    termios line{};
    if (::tcgetattr(fd, &line) != 0)
        return false;
    ::cfmakeraw(&line);
    return ::tcsetattr(fd, TCSANOW, &line) == 0;
}

}  // namespace

std::unique_ptr<PseudoTerminal> PseudoTerminal::create() {
    FileDescriptor master(::posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC));
    std::array<char, 64> name{};
    if (!master || ::grantpt(master.get()) != 0 || ::unlockpt(master.get()) != 0 ||
        ::ptsname_r(master.get(), name.data(), name.size()) != 0)
        return nullptr;
    FileDescriptor slave(::open(name.data(), O_RDWR | O_NOCTTY | O_CLOEXEC));
    if (!slave || !makeRaw(slave.get()))
        return nullptr;
    return std::make_unique<PosixPseudoTerminal>(std::move(master), std::move(slave), name.data());
}

}  // namespace korvel
