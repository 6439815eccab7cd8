#pragma once

namespace korvel {

class Canvas;
struct MapFrame;

/// Meridians and parallels, thin enough to stay behind everything else.
void paintGrid(const MapFrame& frame, Canvas& canvas);

/// The value of each near the view's edge, where places leave room for it.
void paintGridLabels(const MapFrame& frame, Canvas& canvas);

}  // namespace korvel
