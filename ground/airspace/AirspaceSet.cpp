#include "ground/airspace/AirspaceSet.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <utility>

#include "geo/Geodesy.h"
#include "ground/DataFiles.h"
#include "ground/airspace/OpenAir.h"
#include "platform/FileIo.h"
#include "platform/PathText.h"

namespace korvel {
namespace {

double widthOf(const AirspaceBox& box) {
    return box.east - box.west + (box.east < box.west ? 360 : 0);
}

bool touch(const AirspaceBox& a, const AirspaceBox& b) {
    if (a.north < b.south || b.north < a.south)
        return false;
    // One of them begins within the other, counted eastwards.
    return PositiveMod(b.west - a.west, 360) <= widthOf(a) ||
           PositiveMod(a.west - b.west, 360) <= widthOf(b);
}

}  // namespace

void AirspaceSet::load(std::span<const std::filesystem::path> folders, FileSystem& disk) {
    std::vector<Airspace> airspaces;
    files_.clear();
    problems_.clear();
    for (const std::filesystem::path& path : dataFiles(folders, kAirspaceEndings)) {
        const auto bytes = readWholeFile(path, kLargestAirspaceFile, disk);
        if (!bytes || !looksLikeOpenAir(*bytes))
            continue;
        OpenAirFile file = readOpenAir(*bytes);
        const std::string name = textOf(path.filename());
        files_.push_back({name, file.airspaces.size()});
        for (const OpenAirProblem& problem : file.problems)
            problems_.push_back(name + " line " + std::to_string(problem.line) + ": " +
                                problem.text);
        std::ranges::move(file.airspaces, std::back_inserter(airspaces));
    }
    assign(std::move(airspaces));
}

void AirspaceSet::assign(std::vector<Airspace> airspaces) {
    airspaces_ = std::move(airspaces);
    boxes_.clear();
    for (const Airspace& airspace : airspaces_)
        boxes_.push_back(airspace.box());
    ++revision_;
}

void AirspaceSet::takeOver(AirspaceSet&& loaded) {
    const std::uint64_t next = revision_ + 1;
    *this = std::move(loaded);
    revision_ = next;
}

std::vector<std::size_t> AirspaceSet::touching(const AirspaceBox& box) const {
    std::vector<std::size_t> found;
    for (std::size_t i = 0; i < boxes_.size(); ++i)
        if (touch(boxes_[i], box))
            found.push_back(i);
    return found;
}

std::vector<std::size_t> AirspaceSet::at(GeoPoint point) const {
    const double lat = point.lat * kRadToDeg;
    const double lon = point.lon * kRadToDeg;
    std::vector<std::size_t> found = touching({lat, lon, lat, lon});
    std::erase_if(
        found, [&](std::size_t i) { return !airspaces_[i].contains(point); });
    std::ranges::stable_sort(found, {},
                             [this](std::size_t i) { return airspaces_[i].floorFt(std::nullopt); });
    return found;
}

}  // namespace korvel
