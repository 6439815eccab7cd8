#pragma once

#include <string>
#include <vector>

#include "map/profile/ProfileContent.h"
#include "paint/Canvas.h"

namespace korvel {

/// Half the length of the aircraft on a profile, and some room: its middle stands where the profile
/// begins, its tail before that.
inline constexpr double kProfileAircraftPx = 11;
inline constexpr double kProfileAircraftRoomPx = 15;

/// Where distances and altitudes stand on a picture of a profile, and which of them are written.
class ProfileAxes {
 public:
    /// Room for the figures included; `texts` measures them.
    ProfileAxes(const ProfileContent& content, double width, double height,
                const TextMeasure& texts);

    struct Tick {
        double at = 0;  ///< x or y
        std::string label;
    };

    [[nodiscard]] const Rect& plot() const { return plot_; }
    /// Of all figures and names.
    [[nodiscard]] const Font& font() const { return font_; }
    [[nodiscard]] double x(double nm) const;
    /// Altitudes beyond the axis lie beyond the plot.
    [[nodiscard]] double y(double ft) const;
    [[nodiscard]] Point at(const ProfilePoint& point) const { return {x(point.nm), y(point.ft)}; }
    [[nodiscard]] double lowFt() const { return lowFt_; }
    [[nodiscard]] double highFt() const { return highFt_; }

    /// In the pilot's unit, from below; the uppermost bears the unit.
    [[nodiscard]] const std::vector<Tick>& altitudes() const { return altitudes_; }
    /// In the pilot's unit, from the left.
    [[nodiscard]] const std::vector<Tick>& distances() const { return distances_; }

 private:
    void layOutAltitudes(const ProfileContent& content);
    void layOutDistances(const ProfileContent& content);

    Rect plot_;
    Font font_;
    double lengthNm_ = 1;
    double lowFt_ = 0;
    double highFt_ = 0;
    std::vector<Tick> altitudes_;
    std::vector<Tick> distances_;
};

}  // namespace korvel
