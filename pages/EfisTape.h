#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "paint/Canvas.h"

namespace korvel {

class MapColorCache;

/// A scale that moves behind a fixed read-out: speed and altitude upright, heading lying.
struct EfisTape {
    enum class Kind : std::uint8_t { Left, Right, Heading };

    struct Mark {
        double offset = 0;  ///< pixels from the middle; upwards or to the right positive
        int value = 0;
        bool labelled = false;
    };

    Kind kind = Kind::Left;  ///< Left and Right: the side of the page
    Rect area{};
    std::optional<double> value{};
    double visible = 1;  ///< how much of the scale fits the tape
    int markStep = 1;
    int labelStep = 1;  ///< a multiple of markStep
    std::string readOut{};

    /// What lies within the tape; scales other than the heading's begin at 0 when `fromZero`.
    std::vector<Mark> marks() const;
    bool fromZero = false;
};

/// Without a value the tape is crossed out and flagged with `flag`.
void paintEfisTape(Canvas& canvas, const EfisTape& tape, std::string_view flag, double textPx,
                   const MapColorCache& colors);

}  // namespace korvel
