#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "geo/GeoPoint.h"
#include "ground/obstacles/Obstacle.h"
#include "platform/FileSystem.h"

namespace korvel {

/// All obstacles of some folders, by cells of half a degree.
class ObstacleSet {
 public:
    /// Takes the place of what was there. Every table of obstacles is read, whatever it is called.
    void load(std::span<const std::filesystem::path> folders,
              FileSystem& disk = systemFileSystem());
    /// Takes the place of what was there with what another one has loaded.
    void takeOver(ObstacleSet&& loaded);

    /// An obstacle, the file it stands in, and how far it is.
    struct Near {
        const Obstacle* obstacle = nullptr;
        std::string_view file;
        double distanceNm = 0;
    };
    /// Those within `nm` of a point, nearest first. They point into the set until its next loading.
    [[nodiscard]] std::vector<Near> near(GeoPoint point, double nm) const;

    /// A file that was read.
    struct File {
        std::string name;
        std::size_t obstacles = 0;
    };
    [[nodiscard]] std::span<const File> files() const { return files_; }
    [[nodiscard]] std::size_t size() const { return entries_.size(); }
    /// "FILE line N: what", of what was left out.
    [[nodiscard]] std::span<const std::string> problems() const { return problems_; }
    /// Grows with each loading.
    [[nodiscard]] std::uint64_t revision() const { return revision_; }

 private:
    struct Entry {
        std::int32_t cell = 0;
        std::uint32_t file = 0;
        Obstacle obstacle;
    };
    void add(std::vector<Obstacle> obstacles);

    std::vector<Entry> entries_;  // by cell
    std::vector<File> files_;
    std::vector<std::string> problems_;
    std::uint64_t revision_ = 0;
};

}  // namespace korvel
