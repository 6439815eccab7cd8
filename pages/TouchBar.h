#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include "paint/Canvas.h"

namespace korvel {

class MapColorCache;

enum class TouchCommand : std::uint8_t {
    Menu,  ///< all commands
    Page,
    DirectTo,
    Nearest,
    Plan,
    Aircraft,  ///< back to it
    ZoomOut,
    ZoomIn
};

struct TouchButton {
    TouchCommand command = TouchCommand::Page;
    bool enabled = true;
    bool pressed = false;  ///< under a finger at this moment
};

/// The picture on a command's button, in a square of that size.
void paintTouchIcon(Canvas& canvas, TouchCommand command, Point center, double size,
                    ColorValue color);

/// The word on a command's button.
std::string_view touchWord(TouchCommand command);

/// The row of buttons at the window's lower edge: an icon and a word each. Which buttons there
/// are, in which order, is the caller's choice.
class TouchBar {
 public:
    /// The colours must outlive the bar.
    explicit TouchBar(const MapColorCache& colors) : colors_(colors) {}

    /// Fills the whole canvas, with the buttons where layOutScreen() puts them.
    void paint(Canvas& canvas, std::span<const TouchButton> buttons) const;

 private:
    const MapColorCache& colors_;
};

}  // namespace korvel
