#pragma once

#include <string_view>

namespace korvel {

/// Has the texts and the toolkit's own buttons speak that language, or the system's when `asked` is
/// empty; English where there is no translation. Once, before the window is made.
void chooseLanguage(std::string_view asked);

}  // namespace korvel
