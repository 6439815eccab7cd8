#include "ground/terrain/HgtTile.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "base/Ascii.h"
#include "base/TextNumbers.h"
#include "geo/Geodesy.h"
#include "ground/terrain/Unpack.h"

namespace korvel {
namespace {

constexpr std::array<std::string_view, 3> kEndings{".hgt", ".hgt.zip", ".hgt.gz"};
constexpr std::array kSides{1201, 3601};
constexpr std::size_t kBytesPerPost = 2;
constexpr std::size_t bytesOf(int side) {
    return static_cast<std::size_t>(side) * static_cast<std::size_t>(side) * kBytesPerPost;
}
constexpr std::size_t kLargestTile = bytesOf(kSides.back());
constexpr std::size_t kNameLength = 7;

bool isDigits(std::string_view text) {
    return std::ranges::all_of(
        text, [](char c) { return c >= '0' && c <= '9'; });
}

}  // namespace

TileCorner tileOf(GeoPoint point) {
    const int south = static_cast<int>(std::floor(point.lat * kRadToDeg));
    const int west =
        static_cast<int>(std::floor(PositiveMod(point.lon * kRadToDeg + 180, 360))) - 180;
    return {std::clamp(south, -90, 89), std::clamp(west, -180, 179)};
}

std::vector<TileCorner> tilesIn(double south, double west, double north, double east) {
    std::vector<TileCorner> corners;
    const int last = std::min(static_cast<int>(std::floor(north)), 89);
    for (int row = std::max(static_cast<int>(std::floor(south)), -90); row <= last; ++row)
        for (int column = static_cast<int>(std::floor(west)); column <= east; ++column)
            corners.push_back({row, ((column + 180) % 360 + 360) % 360 - 180});
    return corners;
}

std::optional<TileCorner> tileOfName(std::string_view name) {
    if (std::ranges::none_of(kEndings, [name](std::string_view ending) {
            return endsWithIgnoringCase(name, ending);
        }))
        return std::nullopt;
    if (name.size() < kNameLength || !isDigits(name.substr(1, 2)) || !isDigits(name.substr(4, 3)))
        return std::nullopt;
    const char northOrSouth = upperAscii(name[0]);
    const char eastOrWest = upperAscii(name[3]);
    const int lat = ParseInt(name.substr(1, 2));
    const int lon = ParseInt(name.substr(4, 3));
    if ((northOrSouth != 'N' && northOrSouth != 'S') || (eastOrWest != 'E' && eastOrWest != 'W'))
        return std::nullopt;
    const TileCorner corner{northOrSouth == 'N' ? lat : -lat, eastOrWest == 'E' ? lon : -lon};
    if (corner.south < -90 || corner.south > 89 || corner.west < -180 || corner.west > 179)
        return std::nullopt;
    return corner;
}

std::string nameOfTile(TileCorner corner) {
    return (corner.south < 0 ? "S" : "N") + zeroPadded(std::abs(corner.south), 2) +
           (corner.west < 0 ? "W" : "E") + zeroPadded(std::abs(corner.west), 3);
}

std::string HgtTile::read(std::string_view bytes, TileCorner corner) {
    *this = {};
    const auto heights = unpacked(bytes, kLargestTile);
    if (!heights)
        return "The packed file is damaged or larger than a tile of heights";
    const auto* const side = std::ranges::find(kSides, heights->size(), bytesOf);
    if (side == kSides.end())
        return "Not a tile of heights of 1 or 3 arc seconds: " + std::to_string(heights->size()) +
               " bytes";
    corner_ = corner;
    side_ = *side;
    heights_.resize(heights->size() / kBytesPerPost);
    for (std::size_t i = 0; i < heights_.size(); ++i) {
        const auto high = static_cast<std::uint8_t>((*heights)[2 * i]);
        const auto low = static_cast<std::uint8_t>((*heights)[2 * i + 1]);
        heights_[i] = static_cast<std::int16_t>(static_cast<std::uint16_t>(high << 8U | low));
    }
    return {};
}

std::optional<double> HgtTile::heightM(GeoPoint point) const {
    if (side_ == 0)
        return std::nullopt;
    const double steps = side_ - 1;
    double east = point.lon * kRadToDeg - corner_.west;
    east -= std::round((east - 0.5) / 360) * 360;
    const double x = east * steps;
    const double y = (corner_.south + 1 - point.lat * kRadToDeg) * steps;
    // A point on the edge may come out a hair beside it.
    constexpr double kHair = 1e-6;
    if (!(x >= -kHair && x <= steps + kHair && y >= -kHair && y <= steps + kHair))
        return std::nullopt;
    const int column = std::clamp(static_cast<int>(x), 0, side_ - 2);
    const int row = std::clamp(static_cast<int>(y), 0, side_ - 2);
    const double right = std::clamp(x - column, 0.0, 1.0);
    const double down = std::clamp(y - row, 0.0, 1.0);
    const std::array<std::int16_t, 4> posts{post(row, column), post(row, column + 1),
                                            post(row + 1, column), post(row + 1, column + 1)};
    if (std::ranges::find(posts, kUnknown) != posts.end())
        return std::nullopt;
    return (posts[0] * (1 - right) + posts[1] * right) * (1 - down) +
           (posts[2] * (1 - right) + posts[3] * right) * down;
}

}  // namespace korvel
