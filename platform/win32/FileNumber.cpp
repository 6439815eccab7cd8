#include "platform/FileNumber.h"

#include <fcntl.h>
#include <io.h>

#include "platform/win32/LongPath.h"

namespace korvel {

int openFileNumber(const std::filesystem::path& path) {
    return _wopen(longPath(path).c_str(), _O_RDONLY | _O_BINARY | _O_NOINHERIT);
}

}  // namespace korvel
