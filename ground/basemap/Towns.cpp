#include "ground/basemap/Towns.h"

#include <algorithm>
#include <cmath>

#include "geo/Geodesy.h"
#include "ground/basemap/BaseMapLayout.h"
#include "ground/basemap/ByteCursor.h"

namespace korvel {
namespace {

// A town: longitude and latitude (16 bits each), population, flags, the name's length, the name.
constexpr std::size_t kLeastTownBytes = 7;
constexpr unsigned kCapitalFlag = 1;
constexpr unsigned kSeatFlag = 2;
constexpr int kCellSteps = kTownCellDegrees * kTownStepsPerDegree;

double southOf(int cell) { return cell / kTownColumns * kTownCellDegrees - 90.0; }
double westOf(int cell) { return cell % kTownColumns * kTownCellDegrees - 180.0; }

std::uint32_t toSteps(double degrees) {
    return static_cast<std::uint32_t>(
        std::clamp(static_cast<int>(std::lround(degrees * kTownStepsPerDegree)), 0, kCellSteps));
}

std::uint32_t toPopulationSteps(std::uint32_t population) {
    return population == 0 ? 0
                           : static_cast<std::uint32_t>(
                                 std::lround(std::log2(population) * kPopulationStepsPerDoubling));
}

bool decodeTown(ByteCursor& cursor, int cell, Town& town) {
    const std::uint32_t x = cursor.word16();
    const std::uint32_t y = cursor.word16();
    const unsigned population = cursor.byte();
    const unsigned flags = cursor.byte();
    const auto name = cursor.take(cursor.byte());
    if (!cursor.ok() || x > kCellSteps || y > kCellSteps)
        return false;
    town.position = {(southOf(cell) + static_cast<double>(y) / kTownStepsPerDegree) * kDegToRad,
                     (westOf(cell) + static_cast<double>(x) / kTownStepsPerDegree) * kDegToRad};
    town.population = static_cast<std::uint32_t>(
        std::exp2(static_cast<double>(population) / kPopulationStepsPerDoubling));
    town.capital = (flags & kCapitalFlag) != 0;
    town.seat = (flags & kSeatFlag) != 0;
    town.name.assign(name.begin(), name.end());
    return true;
}

}  // namespace

int townCellOf(GeoPoint position) {
    const auto place = [](double degrees, int count) {
        return std::clamp(static_cast<int>(std::floor(degrees / kTownCellDegrees)), 0, count - 1);
    };
    return place(position.lat * kRadToDeg + 90, kTownRows) * kTownColumns +
           place(position.lon * kRadToDeg + 180, kTownColumns);
}

bool decodeTowns(std::span<const std::uint8_t> bytes, int cell, std::vector<Town>& towns) {
    towns.clear();
    ByteCursor cursor(bytes);
    towns.reserve(bytes.size() / kLeastTownBytes);
    while (!cursor.atEnd()) {
        if (!decodeTown(cursor, cell, towns.emplace_back())) {
            towns.clear();
            return false;
        }
    }
    return true;
}

std::string encodeTowns(std::span<const Town> towns, int cell) {
    std::string bytes;
    for (const Town& town : towns) {
        appendWord16(bytes, toSteps(town.position.lon * kRadToDeg - westOf(cell)));
        appendWord16(bytes, toSteps(town.position.lat * kRadToDeg - southOf(cell)));
        appendByte(bytes, std::min(toPopulationSteps(town.population), 255U));
        appendByte(bytes, (town.capital ? kCapitalFlag : 0U) | (town.seat ? kSeatFlag : 0U));
        const std::string name = town.name.substr(0, 255);
        appendByte(bytes, static_cast<std::uint32_t>(name.size()));
        bytes += name;
    }
    return bytes;
}

}  // namespace korvel
