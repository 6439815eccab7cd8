#pragma once

#include <utility>

namespace korvel {

// Sines and cosines of whole degrees from one table of 360 entries, shared by all painters:
// turning a symbol then costs no trigonometric call per point.

double SinDeg(int deg);
double CosDeg(int deg);

/// The point turned about the origin by whole degrees, each coordinate rounded half away from
/// zero. With y growing downwards positive angles turn to the right.
std::pair<int, int> RotatePoint(int x, int y, int deg);

}  // namespace korvel
