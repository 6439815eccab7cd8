#pragma once

#include <optional>
#include <span>
#include <string_view>

#include "cockpit/PageId.h"

namespace korvel {

/// The pages that this program can show, in the order in which they follow each other.
std::span<const PageId> availablePages();

/// The page that the next-page command goes to. `mask` is the setting "DisplayPages", bit n for
/// page n; one that leaves fewer than two pages to cycle through counts as all pages.
PageId nextPage(PageId current, int mask);

/// The page of that number (the setting "Page"), or the map when it cannot be shown.
PageId pageOfNumber(int number);

/// The page of that name, letter by letter; none when there is none.
std::optional<PageId> pageOfName(std::string_view name);

}  // namespace korvel
