#include "platform/Terminal.h"

#include <cstdio>
#include <fcntl.h>
#include <io.h>
#include <windows.h>

namespace korvel {

bool errorOutputIsTerminal() { return _isatty(_fileno(stderr)) != 0; }

void writePlainUtf8() {
    for (FILE* const stream : {stdin, stdout, stderr})
        _setmode(_fileno(stream), _O_BINARY);
    SetConsoleOutputCP(CP_UTF8);
}

void joinTerminal() {
    constexpr int kNoStream = -2;  // what _fileno() says of a stream that leads nowhere
    if (_fileno(stdout) != kNoStream || AttachConsole(ATTACH_PARENT_PROCESS) == 0)
        return;
    for (FILE* const stream : {stdout, stderr})
        if (std::freopen("CONOUT$", "w", stream) == nullptr)
            return;
    SetConsoleOutputCP(CP_UTF8);
}

}  // namespace korvel
