#pragma once

#include <string_view>

#include "paint/TextMeasure.h"

namespace korvel {

/// Measures one line of UTF-8 text in the program's own typefaces without a font engine, from a
/// table of their advance widths. Letters outside Western European count as wide as a digit; bytes
/// that are no UTF-8 count one each. Kerning is left out, as on the screen.
class B612Metrics final : public TextMeasure {
 public:
    TextExtent measure(std::string_view text, const Font& font) const override;
};

}  // namespace korvel
