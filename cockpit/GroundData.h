#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "ground/airspace/AirspaceSet.h"
#include "ground/basemap/BaseMap.h"

namespace korvel {

/// What the document knows of the ground. Main thread only.
class GroundData {
 public:
    /// Opens the base map of these folders, the first "*.map" that can be used, the earlier
    /// folders' first, and reads their files of airspaces: a few milliseconds, and some ten for
    /// each thousand of them.
    void open(std::vector<std::filesystem::path> folders);

    /// The same object through every opening; not open when there is none.
    BaseMap& baseMap() { return baseMap_; }
    [[nodiscard]] const BaseMap& baseMap() const { return baseMap_; }
    [[nodiscard]] const AirspaceSet& airspaces() const { return airspaces_; }
    /// Files that could not be used, and what the map in use was found to lack so far: a message
    /// each.
    [[nodiscard]] std::vector<std::string> problems() const;

 private:
    BaseMap baseMap_;
    AirspaceSet airspaces_;
    std::vector<std::string> problems_;
};

}  // namespace korvel
