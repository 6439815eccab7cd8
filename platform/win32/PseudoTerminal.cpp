#include "platform/PseudoTerminal.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <utility>

#include "platform/win32/PipeDevice.h"
#include "platform/win32/WideText.h"

namespace korvel {
namespace {

using std::chrono::milliseconds;
using std::chrono::steady_clock;

constexpr DWORD kPipeBuffer = 4096;

DWORD millisecondsUntil(steady_clock::time_point deadline) {
    const auto left = std::chrono::ceil<milliseconds>(deadline - steady_clock::now());
    return static_cast<DWORD>(std::max<milliseconds::rep>(left.count(), 0));
}

bool lostPort(DWORD error) { return error == ERROR_BROKEN_PIPE || error == ERROR_NO_DATA; }

/// The serving end of a named pipe with a single instance.
class WindowsPseudoTerminal final : public PseudoTerminal {
 public:
    WindowsPseudoTerminal(Handle pipe, std::string name)
        : pipe_(std::move(pipe)), name_(std::move(name)) {}

    std::string deviceName() const override { return name_; }

    bool write(std::string_view bytes, milliseconds timeout) override {
        const auto deadline = steady_clock::now() + timeout;
        while (!bytes.empty()) {
            if (!waitForPort(deadline))
                return false;
            const PipeTransfer sent =
                writePipe(pipe_.get(), bytes, millisecondsUntil(deadline), nullptr);
            bytes.remove_prefix(sent.count);
            if (lostPort(sent.error))
                DisconnectNamedPipe(pipe_.get());
            else if (sent.error != ERROR_SUCCESS)
                return false;
        }
        return true;
    }

    std::size_t read(std::span<char> into, milliseconds timeout) override {
        const auto deadline = steady_clock::now() + timeout;
        while (waitForPort(deadline)) {
            const PipeTransfer got =
                readPipe(pipe_.get(), into, millisecondsUntil(deadline), nullptr);
            if (!lostPort(got.error))
                return got.count;
            DisconnectNamedPipe(pipe_.get());
        }
        return 0;
    }

    void unplug() override { pipe_.reset(); }

 private:
    /// Until a port has opened the pipe, now or before.
    bool waitForPort(steady_clock::time_point deadline) {
        if (!pipe_)
            return false;
        const Handle done(CreateEventW(nullptr, TRUE, FALSE, nullptr));
        OVERLAPPED connection{};
        connection.hEvent = done.get();
        if (ConnectNamedPipe(pipe_.get(), &connection) != FALSE)
            return true;
        const DWORD error = GetLastError();
        if (error == ERROR_IO_PENDING) {
            if (WaitForSingleObject(done.get(), millisecondsUntil(deadline)) == WAIT_OBJECT_0)
                return true;
            CancelIoEx(pipe_.get(), &connection);
            DWORD unused = 0;
            return GetOverlappedResult(pipe_.get(), &connection, &unused, TRUE) != FALSE;
        }
        if (lostPort(error)) {
            DisconnectNamedPipe(pipe_.get());
            return waitForPort(deadline);
        }
        return error == ERROR_PIPE_CONNECTED;
    }

    Handle pipe_;
    std::string name_;
};

}  // namespace

std::unique_ptr<PseudoTerminal> PseudoTerminal::create() {
    static std::atomic<unsigned> next = 1;
    constexpr int kAttempts = 100;  // numbers that other programs of ours hold
    for (int attempt = 0; attempt < kAttempts; ++attempt) {
        const std::string name = R"(pipe\kpt)" + std::to_string(next++ % 100000);
        const std::string path = R"(\\.\)" + name;
        Handle pipe(CreateNamedPipeW(
            wideText(path).c_str(),
            PIPE_ACCESS_DUPLEX | FILE_FLAG_OVERLAPPED | FILE_FLAG_FIRST_PIPE_INSTANCE,
            PIPE_TYPE_BYTE | PIPE_READMODE_BYTE | PIPE_WAIT, 1, kPipeBuffer, kPipeBuffer, 0,
            nullptr));
        if (pipe)
            return std::make_unique<WindowsPseudoTerminal>(std::move(pipe), name);
    }
    return nullptr;
}

}  // namespace korvel
