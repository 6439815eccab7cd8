#pragma once

#include <string_view>
#include <vector>

#include "map/profile/ProfileAxes.h"
#include "map/profile/ProfileContent.h"
#include "paint/Canvas.h"
#include "paint/LabelSpace.h"

namespace korvel {

class MapColorCache;

/// The stretch of an airspace as a closed line on the picture; limits above ground follow it. It
/// may reach far beyond the plot.
std::vector<Point> sliceOutline(const ProfileContent& content, const ProfileAxes& axes,
                                const AirspaceSlice& slice);

/// The words and figures of a profile: those of the axes, then the names of places, where descents
/// begin, airspaces, each where there is still room.
class ProfileLabels {
 public:
    /// All must outlive it.
    ProfileLabels(Canvas& canvas, const ProfileContent& content, const MapColorCache& colors,
                  const ProfileAxes& axes);

    void paint();

 private:
    void figures();
    void notes();
    void stops();
    void descents();
    void noteLines();
    void noteLine(const Segment& line);
    void airspace(const AirspaceSlice& slice);
    [[nodiscard]] std::vector<Rect> boxesIn(const AirspaceSlice& slice, double width) const;
    bool claim(Point topLeft, std::string_view words, ColorValue color);
    void write(Point at, std::string_view words, ColorValue color, AlignX align);
    [[nodiscard]] double widthOf(std::string_view words) const;
    [[nodiscard]] double groundTop(double left, double right) const;

    Canvas& canvas_;
    const ProfileContent& content_;
    const MapColorCache& colors_;
    const ProfileAxes& axes_;
    LabelSpace taken_;
    LabelSpace lines_;  ///< where the lines of the flight lead
    double linePx_;
};

}  // namespace korvel
