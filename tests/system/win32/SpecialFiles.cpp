#include "system/SpecialFiles.h"

namespace korvel {

// Pipes have a place of their own there, and links want rights that a test need not have.

bool makePipe(const std::filesystem::path& /*path*/) { return false; }

bool makeLink(const std::filesystem::path& /*target*/, const std::filesystem::path& /*link*/) { return false; }

}  // namespace korvel
