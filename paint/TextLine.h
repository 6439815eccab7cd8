#pragma once

// Texts in one line, as tables have them.

#include <string>
#include <string_view>

#include "paint/Canvas.h"

namespace korvel {

/// Writes to the right from a point halfway up the letters.
void writeFrom(Canvas& canvas, Point begin, std::string_view words, const Font& font,
               ColorValue color);
/// Writes so that it ends at a point halfway up the letters.
void writeUpTo(Canvas& canvas, Point end, std::string_view words, const Font& font,
               ColorValue color);

/// As much of the text (UTF-8) as fits into a width, whole letters, with dots for the rest; empty
/// where not even a letter does.
std::string fittingText(const TextMeasure& texts, std::string whole, const Font& font,
                        double width);

}  // namespace korvel
