#pragma once

namespace korvel {

class Canvas;
struct MapFrame;

/// Meridians and parallels, thin enough to stay behind everything else, each with its value where
/// it meets the view's edge.
void paintGrid(const MapFrame& frame, Canvas& canvas);

}  // namespace korvel
