#pragma once

#include <functional>
#include <string>

namespace korvel {

class Canvas;

/// What the module that draws PNG exports under kPngFunction: paints a picture of this size in
/// pixels into `png` and returns true on success. No exception leaves it. Both sides are built
/// together; it is a module so that a program which draws nothing need not load the toolkit.
using PngFunction = bool(int width, int height, const std::function<void(Canvas&)>& paint,
                         std::string& png);
inline constexpr const char* kPngFunction = "korvelPngPicture";
/// Beside the program, without the ending of such libraries.
inline constexpr const char* kPngModule = "korvel-png";

}  // namespace korvel
