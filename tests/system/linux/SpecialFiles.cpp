#include "system/SpecialFiles.h"

#include <sys/stat.h>
#include <system_error>

namespace korvel {

bool makePipe(const std::filesystem::path& path) { return mkfifo(path.c_str(), 0600) == 0; }

bool makeLink(const std::filesystem::path& target, const std::filesystem::path& link) {
    std::error_code error;
    std::filesystem::create_symlink(target, link, error);
    return !error;
}

}  // namespace korvel
