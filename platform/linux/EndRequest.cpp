#include "platform/EndRequest.h"

#include <array>
#include <atomic>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <unistd.h>

namespace korvel {
namespace {

// A handler may touch nothing but what it finds here.
std::atomic<int> toWrite{-1};
std::atomic<int> toRead{-1};
std::atomic<bool> asked{false};
static_assert(std::atomic<int>::is_always_lock_free);

constexpr std::array kSignals = {SIGTERM, SIGINT, SIGHUP};

extern "C" void requestEnd(int /*signal*/) {
    const int error = errno;
    asked = true;
    const char byte = 0;
    // A full pipe has told it already, and without one `asked` has to do.
    [[maybe_unused]] const auto written = write(toWrite, &byte, 1);
    errno = error;
}

void setHandlers(void (*handler)(int)) {
    struct sigaction action {};
    action.sa_handler = handler;
    action.sa_flags = SA_RESTART;
    for (const int signal : kSignals)
        sigaction(signal, &action, nullptr);
}

}  // namespace

EndRequest::EndRequest() {
    std::array<int, 2> ends{-1, -1};
    if (pipe2(ends.data(), O_CLOEXEC | O_NONBLOCK) == 0) {
        toRead = ends[0];
        toWrite = ends[1];
    }
    asked = false;
    setHandlers(requestEnd);
}

EndRequest::~EndRequest() {
    setHandlers(SIG_DFL);
    if (toRead < 0)
        return;
    close(toWrite.exchange(-1));
    close(toRead.exchange(-1));
}

int EndRequest::descriptor() const { return toRead; }

bool EndRequest::isAsked() const { return asked; }

}  // namespace korvel
