#pragma once

#include <array>
#include <cstddef>
#include <string_view>

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
};

inline constexpr std::array<std::string_view, 9> kPageNames = {
    "Map",        "Map+HSI",         "HSI",     "EFIS", "Satellite", "North-Up",
    "FlightPlan", "Nearest-Airport", "Attitude"};
inline constexpr int kPageCount = static_cast<int>(kPageNames.size());

constexpr std::string_view pageName(PageId page) {
    return kPageNames[static_cast<std::size_t>(page)];
}

}  // namespace korvel
