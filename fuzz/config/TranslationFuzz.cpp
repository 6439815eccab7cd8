// Bytes of a translation: any are taken, and no value that a text is given gets lost.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "base/Utf8.h"
#include "config/Translation.h"
#include "config/texts/AllTexts.h"
#include "config/texts/FlightTexts.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    korvel::useTranslation(korvel::Translation(std::string(data, data + size), "xx"));
    for (const korvel::Text& text : korvel::allTexts()) {
        const std::string_view words = korvel::text(text);
        if (words.data() == text.english.data())
            continue;  // not translated
        if (words.empty() || !korvel::isUtf8(words))
            std::abort();
    }
    const std::string filled =
        korvel::formatText(korvel::kFlightTexts.numberOutOfRange, {"\x01", -12345, 67890});
    if (filled.find('\x01') == std::string::npos || filled.find("-12345") == std::string::npos ||
        filled.find("67890") == std::string::npos)
        std::abort();
    return 0;
}
