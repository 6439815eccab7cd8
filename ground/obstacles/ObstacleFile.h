#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "ground/obstacles/Obstacle.h"

namespace korvel {

/// A row that could not be used; lines count from 1.
struct ObstacleProblem {
    std::size_t line = 0;
    std::string text;
};

struct ObstacleFile {
    std::vector<Obstacle> obstacles;
    std::vector<ObstacleProblem> problems;
};

/// Whether the bytes are the FAA's Digital Obstacle File, in its rows of fixed columns or as comma
/// separated values, or another table that has columns for latitude, longitude and height.
bool looksLikeObstacles(std::string_view bytes);

/// Reads either kind; any bytes do no harm. A faulty row is left out and told.
ObstacleFile readObstacles(std::string_view bytes);

}  // namespace korvel
