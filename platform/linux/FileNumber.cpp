#include "platform/FileNumber.h"

#include <fcntl.h>

namespace korvel {

int openFileNumber(const std::filesystem::path& path) {
    return ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
}

}  // namespace korvel
