// The flight log as a book, and a checklist, of any bytes.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "config/Checklist.h"
#include "nav/track/LogBook.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    const auto book = korvel::LogBook::read(text);
    const auto recent = book.lastDays(90, {.year = 2026, .month = 5, .day = 2});
    if (recent.flights > book.all().flights || recent.minutes > book.all().minutes)
        std::abort();
    for (const auto& row : korvel::Checklist::read("", text).rows)
        if (row.words.empty() || row.words.size() > size)
            std::abort();
    return 0;
}
