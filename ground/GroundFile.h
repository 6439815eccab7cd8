#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>

#include "ground/airspace/Airspace.h"

namespace korvel {

enum class GroundFileKind : std::uint8_t { Unknown, BaseMap, Heights, Airspaces, Obstacles };

/// What is in a file that the map's ground is drawn from.
struct GroundFile {
    GroundFileKind kind = GroundFileKind::Unknown;
    std::string error{};        ///< why it cannot be used; empty when it can, and of unknown kinds
    std::size_t count = 0;      ///< airspaces, obstacles, or posts along a tile's edge
    std::size_t problems = 0;   ///< rows or airspaces that were left out
    AirspaceBox box{};          ///< what it covers; nothing sensible without anything in it
    std::uint32_t madeYmd = 0;  ///< date of a base map's sources, YYYYMMDD; 0 for the others
};

/// Reads all of it, by its content as far as that tells and else by its name. `bytes` are those of
/// the file; a base map is read from the file itself.
GroundFile inspectGroundFile(const std::filesystem::path& path, std::string_view bytes);

}  // namespace korvel
