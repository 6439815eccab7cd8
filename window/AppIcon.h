#pragma once

#include <QIcon>

namespace korvel {

class ColorScheme;

/// The program's icon, drawn in the scheme's colours: an aircraft on its course line.
QIcon appIcon(const ColorScheme& scheme);

}  // namespace korvel
