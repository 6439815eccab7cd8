#pragma once

#include <QList>
#include <QRect>

namespace korvel {

class ProfileFile;

/// Where the window stood, remembered in the profile between runs.
struct WindowPlacement {
    QRect normal;  ///< of the frame's client area, device-independent pixels; empty when unknown
    bool maximized = false;
};

WindowPlacement loadPlacement(ProfileFile& profile);
void storePlacement(ProfileFile& profile, const WindowPlacement& placement);

/// A place on one of the screens that the pilot can reach: `wanted` itself while enough of it to
/// grab is on a screen, else moved and shrunk onto the first. An empty `wanted` gives a window in
/// the middle of the first screen. `screens` are the usable areas, at least one.
QRect reachablePlace(const QRect& wanted, const QList<QRect>& screens);

}  // namespace korvel
