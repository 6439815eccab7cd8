#pragma once

// The map's ruler without its looks: its ends, what moves them, and what is between them.

#include <functional>
#include <optional>
#include <string>

#include "cockpit/CockpitData.h"
#include "geo/GeoPoint.h"
#include "paint/Canvas.h"

namespace korvel {

class MapProjection;

/// One end of what is measured.
struct MeasureEnd {
    GeoPoint position;
    std::string name{};  ///< of the place; empty for a point of the map
    /// Magnetic variation there, degrees, east positive; none when unknown.
    std::optional<double> variationDeg{};
    /// It is the aircraft and goes with it; `position` is where that was.
    bool aircraft = false;

    friend bool operator==(const MeasureEnd&, const MeasureEnd&) = default;
};

/// What is between two ends: distance along the great circle and initial bearings of both ways.
struct MeasureFigures {
    double distanceNm = 0;
    double trueDeg = 0;                     ///< from the first end to the second
    double backTrueDeg = 0;                 ///< from the second to the first
    std::optional<double> magneticDeg;      ///< none without the variation there
    std::optional<double> backMagneticDeg;  ///< none without the variation there
    std::optional<int> seconds;             ///< at the present ground speed
};

/// The map's ruler as the pilot's fingers move it: a tap for each end, or a drag from end to end.
/// A finger that comes down on an end moves it; a tap after the second end begins anew.
class MeasureTool {
 public:
    /// What lies under a finger: a place or the aircraft when it is near, else the point itself.
    using Snap = std::function<MeasureEnd(Point finger)>;

    bool isOn() const { return on_; }
    /// Turns it on, without ends, or off.
    void setOn(bool on);

    void press(Point finger, const MapProjection& projection, const CockpitData& data,
               const Snap& snap);
    /// The finger has moved on; not called for a tap.
    void drag(Point finger, const Snap& snap);
    void release();

    const std::optional<MeasureEnd>& from() const { return from_; }
    const std::optional<MeasureEnd>& to() const { return to_; }

    friend bool operator==(const MeasureTool&, const MeasureTool&) = default;

 private:
    enum class Held : std::uint8_t { None, From, To };

    bool on_ = false;
    std::optional<MeasureEnd> from_;
    std::optional<MeasureEnd> to_;
    Held held_ = Held::None;
    bool startsAnew_ = false;  // this finger has set the first end
};

/// Where the end is now; none for the aircraft's while its position is not known.
std::optional<GeoPoint> positionOf(const MeasureEnd& end, const CockpitData& data);

/// How long a distance takes at the present ground speed; none without one, or while it stands.
std::optional<int> secondsOver(double nm, const CockpitData& data);

/// None while an end is missing or its position is not known.
std::optional<MeasureFigures> measure(const MeasureTool& tool, const CockpitData& data);

}  // namespace korvel
