#include "ground/obstacles/ObstacleSet.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "geo/Geodesy.h"
#include "ground/DataFiles.h"
#include "ground/obstacles/ObstacleFile.h"
#include "platform/FileIo.h"
#include "platform/PathText.h"

namespace korvel {
namespace {

constexpr int kRows = 360;  // of half a degree, from the south
constexpr int kColumns = 720;

int rowOf(double latDeg) {
    return std::clamp(static_cast<int>(std::floor((latDeg + 90.0) * 2.0)), 0, kRows - 1);
}

int columnOf(double lonDeg) {
    return static_cast<int>(PositiveMod(std::floor((lonDeg + 180.0) * 2.0), kColumns));
}

}  // namespace

void ObstacleSet::load(std::span<const std::filesystem::path> folders, FileSystem& disk) {
    entries_.clear();
    files_.clear();
    problems_.clear();
    for (const std::filesystem::path& path : dataFiles(folders, kObstacleEndings)) {
        const auto bytes = readWholeFile(path, kLargestObstacleFile, disk);
        if (!bytes || !looksLikeObstacles(*bytes))
            continue;
        ObstacleFile file = readObstacles(*bytes);
        const std::string name = textOf(path.filename());
        files_.push_back({name, file.obstacles.size()});
        for (const ObstacleProblem& problem : file.problems)
            problems_.push_back(name + " line " + std::to_string(problem.line) + ": " +
                                problem.text);
        add(std::move(file.obstacles));
    }
    std::ranges::stable_sort(entries_, {}, &Entry::cell);
    ++revision_;
}

void ObstacleSet::takeOver(ObstacleSet&& loaded) {
    const std::uint64_t next = revision_ + 1;
    *this = std::move(loaded);
    revision_ = next;
}

void ObstacleSet::add(std::vector<Obstacle> obstacles) {
    const auto file = static_cast<std::uint32_t>(files_.size() - 1);
    for (Obstacle& obstacle : obstacles) {
        const int cell = rowOf(obstacle.position.lat * kRadToDeg) * kColumns +
                         columnOf(obstacle.position.lon * kRadToDeg);
        entries_.push_back({cell, file, std::move(obstacle)});
    }
}

std::vector<ObstacleSet::Near> ObstacleSet::near(GeoPoint point, double nm) const {
    const double latDeg = point.lat * kRadToDeg;
    const double reachDeg = nm / 60.0;
    // Near a pole the circle holds every longitude.
    const double farthestLat = std::min(std::abs(latDeg) + reachDeg, 90.0) * kDegToRad;
    const double widthDeg = reachDeg / std::max(std::cos(farthestLat), 1e-9);
    const int columns =
        widthDeg >= 179.0 ? kColumns : std::min(static_cast<int>(widthDeg * 4.0) + 2, kColumns);
    const int first = columnOf(point.lon * kRadToDeg - std::min(widthDeg, 180.0));
    std::vector<Near> found;
    for (int row = rowOf(latDeg - reachDeg); row <= rowOf(latDeg + reachDeg); ++row)
        for (int i = 0; i < columns; ++i) {
            const int cell = row * kColumns + (first + i) % kColumns;
            // clang 14 cannot read the library's subrange, so no equal_range.
            auto entry = std::ranges::lower_bound(entries_, cell, {}, &Entry::cell);
            for (; entry != entries_.end() && entry->cell == cell; ++entry) {
                const double distance = DistanceNm(point, entry->obstacle.position);
                if (distance <= nm)
                    found.push_back({&entry->obstacle, files_[entry->file].name, distance});
            }
        }
    std::ranges::stable_sort(found, {}, &Near::distanceNm);
    return found;
}

}  // namespace korvel
