#include "screen/ZoomGesture.h"

#include <cmath>

namespace korvel {
namespace {

constexpr double kEighthsPerStep = 120;
constexpr double kFactorPerStep = 1.6;  // about what neighbouring ranges differ by

}  // namespace

int ZoomGesture::wheel(int eighths) { return add(eighths / kEighthsPerStep); }

int ZoomGesture::pinch(double factor) {
    return factor > 0 ? add(std::log(factor) / std::log(kFactorPerStep)) : 0;
}

int ZoomGesture::add(double steps) {
    if (steps * steps_ < 0)
        steps_ = 0;
    steps_ += steps;
    // Fingers never meet a step exactly: what rounding leaves short of one counts as one.
    const double whole = std::trunc(steps_ * (1 + 1e-9));
    steps_ -= whole;
    return static_cast<int>(whole);
}

}  // namespace korvel
