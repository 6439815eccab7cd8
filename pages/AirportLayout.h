#pragma once

#include <cstddef>
#include <vector>

#include "paint/Canvas.h"

namespace korvel {

class AirportRecord;

/// One runway of the picture.
struct RunwayShape {
    std::size_t runway = 0;  ///< index in the airport's record
    Point from;              ///< where its first end lies
    Point to;
    double widthPx = 1;
};

struct AirportPictureLayout {
    std::vector<RunwayShape> runways;
    /// 0 when no length is known: the runways are then all as long as the picture allows.
    double pixelsPerFt = 0;
    /// The runways lie where they are. Otherwise not all positions are known, and they stand side
    /// by side, each turned to its heading.
    bool inPlace = false;
};

/// Runways to scale, true north up, as large as the area allows with room for their numbers.
AirportPictureLayout layOutAirport(const AirportRecord& airport, const Rect& area, double textPx);

}  // namespace korvel
