#include "platform/EndRequest.h"

#include <atomic>
#include <windows.h>

namespace korvel {
namespace {

// A log-off or a shutdown reaches a program's window, if it has one. What is heard here are the
// keys and the closing of the console that the program was started from.

std::atomic<bool> asked{false};

/// Longer than the system waits for a handler before it ends the process itself.
constexpr DWORD kUntilTheEndMs = 20'000;

BOOL WINAPI requestEnd(DWORD event) {
    asked = true;
    // From a console that goes away the process is ended once this returns: what is in hand is
    // saved meanwhile.
    if (event != CTRL_C_EVENT && event != CTRL_BREAK_EVENT)
        Sleep(kUntilTheEndMs);
    return TRUE;
}

}  // namespace

EndRequest::EndRequest() {
    asked = false;
    SetConsoleCtrlHandler(requestEnd, TRUE);
}

EndRequest::~EndRequest() { SetConsoleCtrlHandler(requestEnd, FALSE); }

int EndRequest::descriptor() const { return -1; }

bool EndRequest::isAsked() const { return asked; }

}  // namespace korvel
