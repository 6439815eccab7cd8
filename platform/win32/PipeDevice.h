#pragma once

#include <memory>
#include <string>

#include "platform/Event.h"
#include "platform/SerialDevice.h"
#include "platform/win32/Handle.h"

namespace korvel {

/// How a transfer on an overlapped pipe ended.
struct PipeTransfer {
    DWORD error = ERROR_SUCCESS;  ///< WAIT_TIMEOUT when the time ran out
    std::size_t count = 0;
};

/// One read (of at least one byte) or write, at most `waitMs` long and ended by `stop` with
/// ERROR_OPERATION_ABORTED. What went through before is counted either way.
PipeTransfer readPipe(HANDLE pipe, std::span<char> into, DWORD waitMs, Event* stop);
PipeTransfer writePipe(HANDLE pipe, std::string_view bytes, DWORD waitMs, Event* stop);

/// The port's end of a pseudo-terminal: a pipe that behaves like a serial line. It remembers the
/// line settings and keeps the timeouts itself.
std::unique_ptr<SerialDevice> openPipeDevice(const std::string& path, SystemError& error);

}  // namespace korvel
