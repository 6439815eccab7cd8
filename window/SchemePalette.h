#pragma once

#include <QPalette>

namespace korvel {

class ColorScheme;

/// Colours for menus and dialogs that go with the scheme: at night they are as dark as the map and
/// nothing in them is brighter than their text.
QPalette schemePalette(const ColorScheme& scheme);

}  // namespace korvel
