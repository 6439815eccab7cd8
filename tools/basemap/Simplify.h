#pragma once

#include "tools/basemap/Shapes.h"

namespace korvel::making {

/// How many metres a step of the sources' coordinates is in a bin.
struct Scale {
    double xM = 1;
    double yM = 1;
};

/// The line with as few of its points as keep every one of them within the tolerance of it
/// (Douglas and Peucker's way). The ends stay; a closed line, whose ends are one point, keeps at
/// least four points, or vanishes when it is narrower than the tolerance. No tolerance leaves it as
/// it is.
RawLine simplified(const RawLine& line, const Scale& scale, double toleranceM);

}  // namespace korvel::making
