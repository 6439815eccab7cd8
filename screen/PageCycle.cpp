#include "screen/PageCycle.h"

#include <algorithm>
#include <array>

namespace korvel {
namespace {

constexpr std::array kPages = {PageId::Map,
                               PageId::MapHsi,
                               PageId::Hsi,
                               PageId::Efis,
                               PageId::NorthUp,
                               PageId::FlightPlan,
                               PageId::NearestAirport,
                               PageId::Satellite,
                               PageId::Attitude,
                               PageId::Airspace,
                               PageId::Profile};

/// Without a module, files of airspaces or of heights they are empty: they take part only where
/// they were chosen.
bool needsMore(PageId page) {
    return page == PageId::Attitude || page == PageId::Airspace || page == PageId::Profile;
}

bool isIn(int mask, PageId page) {
    return (static_cast<unsigned>(mask) >> static_cast<unsigned>(page) & 1U) != 0;
}

}  // namespace

std::span<const PageId> availablePages() { return kPages; }

PageId nextPage(PageId current, int mask) {
    const auto chosen = [mask](PageId page) { return isIn(mask, page); };
    const bool all = std::ranges::count_if(kPages, chosen) < 2;
    const auto* at = std::ranges::find(kPages, current);
    // Once around, starting behind the current page (or with the first one).
    for (std::size_t step = 0; step < kPages.size(); ++step) {
        at = at == kPages.end() || at + 1 == kPages.end() ? kPages.begin() : at + 1;
        if (chosen(*at) || (all && !needsMore(*at)))
            return *at;
    }
    return current;
}

PageId pageOfNumber(int number) {
    const auto* found =
        std::ranges::find(kPages, number, [](PageId page) { return static_cast<int>(page); });
    return found == kPages.end() ? PageId::Map : *found;
}

std::optional<PageId> pageOfName(std::string_view name) {
    const auto* const found = std::ranges::find(kPages, name, pageName);
    return found == kPages.end() ? std::nullopt : std::optional(*found);
}

}  // namespace korvel
