#pragma once

#include "paint/TextMeasure.h"
#include "qtpaint/DisplayFonts.h"

namespace korvel {

/// Measures texts as the window draws them, with or without a painter at hand.
class QtTextMeasure final : public TextMeasure {
 public:
    /// The fonts must outlive this.
    explicit QtTextMeasure(DisplayFonts& fonts) : fonts_(fonts) {}

    TextExtent measure(std::string_view text, const Font& font) const override {
        const FontFace& face = fonts_.face(font);
        return {face.advance(text), face.capHeight, face.descent};
    }

 private:
    DisplayFonts& fonts_;
};

}  // namespace korvel
