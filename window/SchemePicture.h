#pragma once

#include <QIcon>

namespace korvel {

class ColorScheme;

/// What the map looks like in the scheme, small enough for a button: land and water, a leg that is
/// flown and a place with its name.
QIcon schemePicture(const ColorScheme& scheme);

}  // namespace korvel
