#include "platform/win32/PipeDevice.h"

#include <array>
#include <chrono>
#include <utility>

#include "platform/ReadTimer.h"
#include "platform/win32/WideText.h"

namespace korvel {
namespace {

using std::chrono::steady_clock;

constexpr std::size_t kPiece = 1024;

/// Waits for an overlapped transfer that was `begun`, and cancels it when it may not go on.
PipeTransfer finish(HANDLE pipe, OVERLAPPED& transfer, bool begun, DWORD waitMs, Event* stop) {
    PipeTransfer result;
    if (!begun && GetLastError() != ERROR_IO_PENDING) {
        result.error = GetLastError();
        return result;
    }
    const std::array<HANDLE, 2> waited = {
        transfer.hEvent, stop == nullptr ? nullptr : reinterpret_cast<HANDLE>(stop->native())};
    const DWORD ended =
        WaitForMultipleObjects(stop == nullptr ? 1 : 2, waited.data(), FALSE, waitMs);
    if (ended != WAIT_OBJECT_0) {
        result.error = ended == WAIT_TIMEOUT ? DWORD{WAIT_TIMEOUT} : DWORD{ERROR_OPERATION_ABORTED};
        CancelIoEx(pipe, &transfer);
    }
    DWORD count = 0;
    if (GetOverlappedResult(pipe, &transfer, &count, TRUE) == FALSE &&
        result.error == ERROR_SUCCESS)
        result.error = GetLastError();
    result.count = count;
    return result;
}

SystemError deviceError(DWORD error) {
    switch (error) {
        case ERROR_SUCCESS:
        case WAIT_TIMEOUT:
            return kNoError;
        case ERROR_BROKEN_PIPE:
        case ERROR_NO_DATA:
        case ERROR_PIPE_NOT_CONNECTED:
            return kErrorDeviceFailure;  // the other end was closed
        default:
            return error;
    }
}

class PipeDevice final : public SerialDevice {
 public:
    PipeDevice(Handle pipe, Event aborted) : pipe_(std::move(pipe)), aborted_(std::move(aborted)) {}

    SystemError readLineSettings(LineSettings& settings) override {
        settings = settings_;
        return kNoError;
    }

    SystemError applyLineSettings(const LineSettings& settings) override {
        settings_ = settings;
        return kNoError;
    }

    SystemError setTimeouts(const SerialTimeouts& timeouts) override {
        timeouts_ = timeouts;
        return kNoError;
    }

    Transfer read(std::span<char> into) override {
        if (aborted_.isSet())
            return {.error = kErrorOperationAborted, .count = 0};
        ReadTimer timer(timeouts_, into.size(), steady_clock::now());
        std::size_t count = 0;
        PipeTransfer last;
        while (count < into.size() && last.error == ERROR_SUCCESS) {
            const auto left = timer.left(steady_clock::now());
            last = readPipe(pipe_.get(), into.subspan(count),
                            left ? static_cast<DWORD>(left->count()) : INFINITE, &aborted_);
            count += last.count;
            timer.noteBytes(steady_clock::now());
        }
        return {.error = count > 0 ? kNoError : deviceError(last.error), .count = count};
    }

    Transfer write(std::string_view bytes) override {
        if (aborted_.isSet())
            return {.error = kErrorOperationAborted, .count = 0};
        const auto limit = static_cast<DWORD>(timeouts_.writeMultiplierMs * bytes.size() +
                                              timeouts_.writeConstantMs);
        // In pieces, since of one that is cut short nothing is told to have gone through.
        std::size_t count = 0;
        PipeTransfer last;
        while (count < bytes.size() && last.error == ERROR_SUCCESS) {
            last = writePipe(pipe_.get(), bytes.substr(count, kPiece),
                             limit == 0 ? INFINITE : limit, &aborted_);
            count += last.count;
        }
        return {.error = deviceError(last.error), .count = count};
    }

    void clearError() override {}
    void abort() override { aborted_.set(); }

 private:
    Handle pipe_;
    LineSettings settings_;
    SerialTimeouts timeouts_;
    Event aborted_;
};

}  // namespace

PipeTransfer readPipe(HANDLE pipe, std::span<char> into, DWORD waitMs, Event* stop) {
    const Handle done(CreateEventW(nullptr, TRUE, FALSE, nullptr));
    if (!done)
        return {.error = GetLastError()};
    OVERLAPPED transfer{};
    transfer.hEvent = done.get();
    const bool begun =
        ReadFile(pipe, into.data(), static_cast<DWORD>(into.size()), nullptr, &transfer) != FALSE;
    return finish(pipe, transfer, begun, waitMs, stop);
}

PipeTransfer writePipe(HANDLE pipe, std::string_view bytes, DWORD waitMs, Event* stop) {
    const Handle done(CreateEventW(nullptr, TRUE, FALSE, nullptr));
    if (!done)
        return {.error = GetLastError()};
    OVERLAPPED transfer{};
    transfer.hEvent = done.get();
    const bool begun = WriteFile(pipe, bytes.data(), static_cast<DWORD>(bytes.size()), nullptr,
                                 &transfer) != FALSE;
    return finish(pipe, transfer, begun, waitMs, stop);
}

std::unique_ptr<SerialDevice> openPipeDevice(const std::string& path, SystemError& error) {
    Handle pipe(CreateFileW(wideText(path).c_str(), GENERIC_READ | GENERIC_WRITE, 0, nullptr,
                            OPEN_EXISTING, FILE_FLAG_OVERLAPPED, nullptr));
    if (!pipe) {
        error = GetLastError() == ERROR_PIPE_BUSY ? kErrorAccessDenied : GetLastError();
        return nullptr;
    }
    Event aborted(Event::Reset::Manual);
    if (!aborted) {
        error = kErrorTooManyOpenFiles;
        return nullptr;
    }
    error = kNoError;
    return std::make_unique<PipeDevice>(std::move(pipe), std::move(aborted));
}

}  // namespace korvel
