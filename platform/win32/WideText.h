#pragma once

#include <string>
#include <string_view>

namespace korvel {

/// Our UTF-8 as the system's functions take it; what is no UTF-8 becomes U+FFFD.
std::wstring wideText(std::string_view utf8);

/// The other way round; a surrogate without its other half becomes U+FFFD.
std::string narrowText(std::wstring_view wide);

}  // namespace korvel
