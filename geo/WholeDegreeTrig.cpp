#include "geo/WholeDegreeTrig.h"

#include <array>
#include <cmath>
#include <cstddef>

#include "geo/Geodesy.h"

namespace korvel {
namespace {

constexpr int kFullTurn = 360;

const std::array<double, kFullTurn>& sines() {
    // Filled on the first use; the language guards the first use against other threads.
    static const std::array<double, kFullTurn> table = [] {
        std::array<double, kFullTurn> filled{};
        for (int i = 0; i < kFullTurn; ++i)
            filled.at(static_cast<std::size_t>(i)) = std::sin(i * kDegToRad);
        return filled;
    }();
    return table;
}

}  // namespace

double SinDeg(int deg) {
    const int reduced = deg % kFullTurn;
    return sines()[static_cast<std::size_t>(reduced < 0 ? reduced + kFullTurn : reduced)];
}

double CosDeg(int deg) { return SinDeg(deg % kFullTurn + 90); }

std::pair<int, int> RotatePoint(int x, int y, int deg) {
    const double sine = SinDeg(deg);
    const double cosine = CosDeg(deg);
    return {RoundToInt(x * cosine - y * sine), RoundToInt(y * cosine + x * sine)};
}

}  // namespace korvel
