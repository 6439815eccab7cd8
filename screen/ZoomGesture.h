#pragma once

namespace korvel {

/// Turns what a wheel or two fingers do into whole steps of the range ladder. Fine movements add
/// up until they make a step; a change of direction starts afresh.
class ZoomGesture {
 public:
    /// Wheel turned by `eighths` of a degree (120 a notch on a plain mouse, away from the user
    /// positive). Returns steps to zoom in, negative to zoom out.
    int wheel(int eighths);

    /// Fingers moved apart by `factor` (below 1: together) since the last call.
    int pinch(double factor);

    /// A new gesture begins.
    void reset() { steps_ = 0; }

 private:
    int add(double steps);

    double steps_ = 0;  // what is left of a step, -1 to 1
};

}  // namespace korvel
