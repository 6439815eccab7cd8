// Bytes of a colour-scheme file over the day scheme: none of its colours gets lost, and the table
// stays in order.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "paint/ColorScheme.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const korvel::ColorScheme day;
    korvel::ColorScheme scheme = day;
    scheme.parseText(std::string(data, data + size));
    const auto entries = scheme.entries();
    const auto notAscending = [](const auto& a, const auto& b) { return !(a.first < b.first); };
    if (std::ranges::adjacent_find(entries, notAscending) != entries.end())
        std::abort();
    for (const auto& [key, color] : entries)
        if (color > 0xFFFFFFU || scheme.Color(key) != color)
            std::abort();
    const auto kept = [&scheme](const korvel::ColorScheme::Entry& entry) {
        return std::ranges::binary_search(scheme.entries(), entry.first, {},
                                          &korvel::ColorScheme::Entry::first);
    };
    if (!std::ranges::all_of(day.entries(), kept))
        std::abort();
    return 0;
}
