#include "exchange/PlainName.h"

#include "base/Ascii.h"
#include "base/AsciiText.h"
#include "base/TextNumbers.h"

namespace korvel {

std::string plainName(std::string_view name, std::string_view marks, std::size_t longest) {
    std::string plain;
    for (const char c : toAsciiText(name)) {
        const bool fits = (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') ||
                          (c >= '0' && c <= '9') || marks.find(c) != std::string_view::npos;
        if (fits)
            plain += c;
        else if (!plain.ends_with('-'))
            plain += '-';
    }
    plain = trimmedLeft(plain, "-");
    return std::string(trimmedRight(std::string_view(plain).substr(0, longest), "-"));
}

std::string numberedName(std::string_view plain, int number, std::size_t longest) {
    const std::string suffix = "-" + formatInt(number);
    return std::string(plain.substr(0, longest - suffix.size())) + suffix;
}

}  // namespace korvel
