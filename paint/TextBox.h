#pragma once

#include "paint/Canvas.h"

namespace korvel {

/// The box that a text covers when it is drawn at `anchor`, from the top of its capitals to its
/// lowest letters.
Rect textBox(Point anchor, const TextExtent& extent, const TextStyle& style);

}  // namespace korvel
