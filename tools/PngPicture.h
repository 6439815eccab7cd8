#pragma once

#include <functional>
#include <string>

namespace korvel {

class Canvas;

/// Makes `png` a PNG of what `paint` draws, with typefaces, smoothed edges and bitmaps as in the
/// window. Sides in pixels. Returns why it could not, empty on success: the toolkit that draws it
/// may not have come with the program.
std::string makePng(int width, int height, const std::function<void(Canvas&)>& paint,
                    std::string& png);

}  // namespace korvel
