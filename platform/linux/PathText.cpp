#include "platform/PathText.h"

namespace korvel {

// Names are bytes, and whatever they are they stay.

std::filesystem::path pathOf(std::string_view text) { return text; }

std::string textOf(const std::filesystem::path& path) { return path.native(); }

}  // namespace korvel
