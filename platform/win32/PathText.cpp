#include "platform/PathText.h"

#include "platform/win32/WideText.h"

namespace korvel {

std::filesystem::path pathOf(std::string_view text) { return wideText(text); }

std::string textOf(const std::filesystem::path& path) { return narrowText(path.native()); }

}  // namespace korvel
