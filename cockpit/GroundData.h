#pragma once

#include <atomic>
#include <filesystem>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "ground/airspace/AirspaceSet.h"
#include "ground/basemap/BaseMap.h"
#include "ground/obstacles/ObstacleSet.h"
#include "ground/terrain/TerrainStore.h"

namespace korvel {

/// Where the map takes the ground from; null for none. All must outlive who uses them.
struct GroundSources {
    BaseMap* map = nullptr;
    const AirspaceSet* airspaces = nullptr;
    TerrainStore* terrain = nullptr;
    const ObstacleSet* obstacles = nullptr;
};

/// What the document knows of the ground. Main thread only.
class GroundData {
 public:
    GroundData() = default;
    GroundData(const GroundData&) = delete;
    GroundData& operator=(const GroundData&) = delete;
    /// Waits for what is being read.
    ~GroundData();

    /// Opens the base map of these folders, the first "*.map" that can be used, the earlier
    /// folders' first: a few milliseconds. Their files of airspaces and obstacles are read on a
    /// thread, some ten milliseconds for each thousand airspaces, and come into use with
    /// takeLoaded(); those before stay until then. Their tiles of heights are read as they are
    /// wanted.
    void startOpening(std::vector<std::filesystem::path> folders);
    /// The same, and returns when all is there.
    void open(std::vector<std::filesystem::path> folders);
    /// Once per tick: brings what has been read into use.
    void takeLoaded();

    /// The same object through every opening; not open when there is none.
    BaseMap& baseMap() { return baseMap_; }
    [[nodiscard]] const BaseMap& baseMap() const { return baseMap_; }
    [[nodiscard]] const AirspaceSet& airspaces() const { return airspaces_; }
    [[nodiscard]] const ObstacleSet& obstacles() const { return obstacles_; }
    TerrainStore& terrain() { return terrain_; }
    [[nodiscard]] const TerrainStore& terrain() const { return terrain_; }
    GroundSources sources() { return {&baseMap_, &airspaces_, &terrain_, &obstacles_}; }
    /// Files that could not be used, and what the map in use was found to lack so far: a message
    /// each.
    [[nodiscard]] std::vector<std::string> problems() const;

 private:
    struct Reading {
        AirspaceSet airspaces;
        ObstacleSet obstacles;
        std::atomic<bool> finished{false};
        std::thread thread;
    };

    void finishReading();

    BaseMap baseMap_;
    AirspaceSet airspaces_;
    ObstacleSet obstacles_;
    TerrainStore terrain_;
    std::unique_ptr<Reading> reading_;  ///< null while nothing is read
    std::vector<std::string> mapProblems_;
};

}  // namespace korvel
