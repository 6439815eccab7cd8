#include "tools/basemap/CityList.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <span>
#include <stdexcept>
#include <tuple>

#include "base/AsciiText.h"
#include "base/Utf8.h"
#include "geo/Geodesy.h"
#include "ground/basemap/BaseMapLayout.h"

namespace korvel::making {
namespace {

// The typeface's letters beyond Latin-1.
constexpr std::array<std::uint32_t, 6> kMoreLetters{0x152, 0x153, 0x160, 0x161, 0x178, 0x2019};
/// Kinds of place: quarters, abandoned, historical, destroyed ones.
constexpr std::array<std::string_view, 4> kLeftOut{"PPLX", "PPLQ", "PPLH", "PPLW"};
constexpr double kUnitsPerDegree = 1e5;

bool isShown(std::uint32_t letter) {
    return (letter >= 0x20 && letter < 0x7F) || (letter > 0xA0 && letter <= 0xFF) ||
           std::ranges::find(kMoreLetters, letter) != kMoreLetters.end();
}

/// The wire format: numbers of seven bits a byte, and texts with their length.
class Wire {
 public:
    explicit Wire(std::string_view bytes) : bytes_(bytes) {}
    bool atEnd() const { return bytes_.empty(); }
    std::uint64_t number() {
        std::uint64_t value = 0;
        for (unsigned shift = 0; shift < 64; shift += 7) {
            if (bytes_.empty())
                break;
            const auto byte = static_cast<unsigned char>(bytes_.front());
            bytes_.remove_prefix(1);
            value |= static_cast<std::uint64_t>(byte & 0x7FU) << shift;
            if (byte < 0x80U)
                return value;
        }
        throw std::runtime_error("The list of cities is damaged");
    }
    std::int64_t difference() {
        const std::uint64_t folded = number();
        return static_cast<std::int64_t>(folded >> 1U) ^ -static_cast<std::int64_t>(folded & 1U);
    }
    std::string_view text() {
        const std::uint64_t size = number();
        if (size > bytes_.size())
            throw std::runtime_error("The list of cities is damaged");
        const std::string_view result = bytes_.substr(0, size);
        bytes_.remove_prefix(size);
        return result;
    }

 private:
    std::string_view bytes_;
};

struct City {
    std::string_view name;
    std::string_view kind;
    std::uint64_t population = 0;
};

/// One city; positions are differences from the city before.
City readCity(Wire message, std::int64_t& lon, std::int64_t& lat) {
    enum Field : std::uint64_t { Name = 2, Kind = 7, Population = 9, Lon = 10, Lat = 11 };
    constexpr std::uint64_t kText = 2;
    City city;
    while (!message.atEnd()) {
        const std::uint64_t tag = message.number();
        const std::uint64_t field = tag >> 3U;
        if ((tag & 7U) == kText) {
            const std::string_view text = message.text();
            if (field == Name)
                city.name = text;
            else if (field == Kind)
                city.kind = text;
        } else if (field == Lon) {
            lon += message.difference();
        } else if (field == Lat) {
            lat += message.difference();
        } else {
            const std::uint64_t value = message.number();
            if (field == Population)
                city.population = value;
        }
    }
    return city;
}

}  // namespace

std::string showableName(std::string_view utf8) {
    std::string name;
    while (!utf8.empty()) {
        const std::string_view before = utf8;
        const std::uint32_t letter = takeCodePoint(utf8);
        const std::string_view bytes = before.substr(0, before.size() - utf8.size());
        if (letter == 0x27 || letter == 0x2BC || letter == 0x2BB)
            name += '\'';
        else if (isShown(letter))
            name += bytes;
        else
            name += toAsciiText(bytes);
    }
    return name.find('?') == std::string::npos ? name : std::string();
}

std::vector<Town> readCities(std::string_view bytes) {
    std::vector<Town> towns;
    std::int64_t lon = 0;
    std::int64_t lat = 0;
    for (Wire list(bytes); !list.atEnd();) {
        const City city = readCity(Wire(list.text()), lon, lat);
        const bool capital = city.kind == "PPLC";
        const bool seat = city.kind.starts_with("PPLA");
        if (std::ranges::find(kLeftOut, city.kind) != kLeftOut.end() ||
            (city.population == 0 && !capital && !seat))
            continue;
        Town town{.position = {static_cast<double>(lat) / kUnitsPerDegree * kDegToRad,
                               static_cast<double>(lon) / kUnitsPerDegree * kDegToRad},
                  .population = static_cast<std::uint32_t>(
                      std::min<std::uint64_t>(city.population, 0xFFFFFFFFU)),
                  .capital = capital,
                  .seat = seat,
                  .name = showableName(city.name)};
        if (!town.name.empty())
            towns.push_back(std::move(town));
    }
    return towns;
}

std::vector<std::string> townCells(const std::vector<Town>& towns) {
    std::vector<std::vector<Town>> cells(static_cast<std::size_t>(kTownColumns) * kTownRows);
    for (const Town& town : towns)
        cells[static_cast<std::size_t>(townCellOf(town.position))].push_back(town);
    std::vector<std::string> encoded;
    for (std::vector<Town>& cell : cells) {
        std::ranges::sort(cell, [](const Town& a, const Town& b) {
            return std::tuple(b.population, a.name, a.position.lat) <
                   std::tuple(a.population, b.name, b.position.lat);
        });
        encoded.push_back(encodeTowns(cell, static_cast<int>(encoded.size())));
    }
    return encoded;
}

}  // namespace korvel::making
