#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_map>

#include <QImage>

#include "paint/Canvas.h"
#include "qtpaint/DisplayFonts.h"

namespace korvel {

/// A text, halo included, or a symbol drawn once, ready to be copied to the screen.
struct Label {
    QImage image;     ///< carries its device pixel ratio
    double left = 0;  ///< from the text's start, or the symbol's centre, to the image's left edge
    double top = 0;   ///< from the baseline, or the centre, up to the image's top edge, negative
};

/// Keeps labels and symbols rendered between frames: a map repeats the same ones, and copying one
/// costs a tenth of drawing it and far less than stroking a halo.
///
/// Two generations bound the memory: what was not asked for while one generation filled up is
/// dropped. User interface thread only.
class LabelCache {
 public:
    explicit LabelCache(DisplayFonts& fonts) : fonts_(fonts) {}

    /// The label stays valid until the next call.
    const Label& get(std::string_view text, const TextStyle& style, double devicePixelRatio);
    const Label& get(const Stamp& stamp, double devicePixelRatio);

    DisplayFonts& fonts() { return fonts_; }

    std::size_t bytes() const { return freshBytes_ + agedBytes_; }
    static constexpr std::size_t kGenerationBytes = std::size_t{4} << 20U;

 private:
    using Labels = std::unordered_map<std::string, Label>;

    template <class Render>
    const Label& getByKey(Render render);
    Label render(std::string_view text, const TextStyle& style, double devicePixelRatio);
    Label render(const Stamp& stamp, double devicePixelRatio);

    DisplayFonts& fonts_;
    Labels fresh_;
    Labels aged_;
    std::size_t freshBytes_ = 0;
    std::size_t agedBytes_ = 0;
    std::string key_;  // kept between calls to spare the allocation
};

}  // namespace korvel
