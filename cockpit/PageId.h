#pragma once

#include <array>
#include <cstddef>
#include <string_view>

#include "config/texts/PreferenceTexts.h"

namespace korvel {

/// The display pages by their numbers, as the settings "Page" and "DisplayPages" count them.
enum class PageId : int {
    Map = 0,
    MapHsi = 1,
    Hsi = 2,
    Efis = 3,
    Satellite = 4,
    NorthUp = 5,
    FlightPlan = 6,
    NearestAirport = 7,
    Attitude = 8,
    Airspace = 9,
    Profile = 10,
};

inline constexpr std::array kPageTexts = {
    kPreferenceTexts.pageMap,        kPreferenceTexts.pageMapHsi,    kPreferenceTexts.pageHsi,
    kPreferenceTexts.pageEfis,       kPreferenceTexts.pageSatellite, kPreferenceTexts.pageNorthUp,
    kPreferenceTexts.pageFlightPlan, kPreferenceTexts.pageNearest,   kPreferenceTexts.pageAttitude,
    kPreferenceTexts.pageAirspace,   kPreferenceTexts.pageProfile};
inline constexpr int kPageCount = static_cast<int>(kPageTexts.size());

constexpr const Text& pageText(PageId page) { return kPageTexts[static_cast<std::size_t>(page)]; }

/// What the command line calls the page, whatever the language.
constexpr std::string_view pageName(PageId page) { return pageText(page).english; }

}  // namespace korvel
