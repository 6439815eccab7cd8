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

}  // namespace korvel
