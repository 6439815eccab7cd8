#include "window/WindowPlacement.h"

#include <algorithm>

#include "config/ProfileFile.h"

namespace korvel {
namespace {

constexpr const char* kSection = "Options";
constexpr int kUnknown = -1;
constexpr QSize kUsualSize(1024, 700);
constexpr QSize kSmallestSize(480, 320);
constexpr int kGrip = 120;  // so much of the window's top edge must be in reach

bool canBeGrabbed(const QRect& place, const QRect& screen) {
    const QRect top(place.left(), place.top(), place.width(), 1);
    return screen.intersected(top).width() >= std::min(kGrip, place.width());
}

}  // namespace

WindowPlacement loadPlacement(ProfileFile& profile) {
    const int width = profile.getInt(kSection, "WindowWidth", kUnknown);
    const int height = profile.getInt(kSection, "WindowHeight", kUnknown);
    const int left = profile.getInt(kSection, "WindowLeft", 0);
    const int top = profile.getInt(kSection, "WindowTop", 0);
    WindowPlacement placement;
    if (width > 0 && height > 0)
        placement.normal = QRect(left, top, width, height);
    placement.maximized = profile.getInt(kSection, "WindowMaximized", 0) != 0;
    return placement;
}

void storePlacement(ProfileFile& profile, const WindowPlacement& placement) {
    profile.setInt(kSection, "WindowLeft", placement.normal.left(), true);
    profile.setInt(kSection, "WindowTop", placement.normal.top(), true);
    profile.setInt(kSection, "WindowWidth", placement.normal.width(), true);
    profile.setInt(kSection, "WindowHeight", placement.normal.height(), true);
    profile.setInt(kSection, "WindowMaximized", placement.maximized ? 1 : 0, true);
}

QRect reachablePlace(const QRect& wanted, const QList<QRect>& screens) {
    const QRect& first = screens.front();
    if (wanted.isEmpty()) {
        QRect place(QPoint(), kUsualSize.boundedTo(first.size()));
        place.moveCenter(first.center());
        return place;
    }
    const QSize size = wanted.size().expandedTo(kSmallestSize);
    for (const QRect& screen : screens)
        if (canBeGrabbed(wanted, screen))
            return {wanted.topLeft(), size.boundedTo(screen.size())};
    QRect place(wanted.topLeft(), size.boundedTo(first.size()));
    place.moveLeft(std::clamp(place.left(), first.left(), first.right() - place.width() + 1));
    place.moveTop(std::clamp(place.top(), first.top(), first.bottom() - place.height() + 1));
    return place;
}

}  // namespace korvel
