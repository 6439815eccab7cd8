#pragma once

// How much room texts take, apart from drawing them.

#include <cstdint>
#include <string_view>

namespace korvel {

enum class FontWeight : std::uint8_t { Regular, Bold };

/// One of the program's two faces (proportional, or monospaced for columns of figures) by its
/// pixel height. Digits have equal advances in both.
struct Font {
    double height = 14;  ///< em height in pixels
    FontWeight weight = FontWeight::Regular;
    bool monospaced = false;
};

struct TextExtent {
    double width = 0;
    double capHeight = 0;  ///< height of the capitals and digits above the baseline
    double descent = 0;    ///< depth of the lowest letters below the baseline
};

/// Tells how much room texts take. Layouts ask it, so that where things stand can be worked out,
/// and tested, without anything to draw on.
class TextMeasure {
 public:
    TextMeasure() = default;
    TextMeasure(const TextMeasure&) = delete;
    TextMeasure& operator=(const TextMeasure&) = delete;
    virtual ~TextMeasure() = default;

    /// One line of UTF-8 text; the heights are the font's, whatever the text.
    virtual TextExtent measure(std::string_view text, const Font& font) const = 0;
};

}  // namespace korvel
