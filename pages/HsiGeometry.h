#pragma once

#include <array>
#include <optional>
#include <string>

#include "geo/GeoPoint.h"
#include "paint/Canvas.h"

namespace korvel {

/// What the horizontal situation indicator shows, in whole degrees and pixels.
struct HsiState {
    static constexpr int kNone = static_cast<int>(kNoAngle);

    int heading = kNone;        ///< at the top of the card, magnetic
    int course = kNone;         ///< of the needle, magnetic; none: no needle
    double bearing = kNoAngle;  ///< to the active waypoint, magnetic
    /// Where the course lies, seen along it: 1 is full scale to the right, as for an aircraft left
    /// of course. More than full scale stays there. kNoAngle: none.
    double deviation = kNoAngle;
    int toFrom = 0;  ///< 0 no valid course, 1 the arrow points along the needle, else back
    int labelHeight = 20;
    int centerX = 0;
    int centerY = 0;
    int radius = 0;  ///< of the whole instrument

    /// Puts it around the aircraft's point of a page, as large as the page is wide.
    void place(int x, int y);
};

/// Where the parts of the indicator lie, apart from any painting. A screen angle is measured
/// counter-clockwise from the right; all points lie on whole pixels.
class HsiGeometry {
 public:
    static constexpr int kTicks = 36;

    struct Tick {
        int value = 0;  ///< direction on the card, 0 to 350
        int angle = 0;  ///< on the screen, 0 to 359
        Segment line;   ///< from the rim inwards
        bool labelled = false;
    };

    /// The box over the heading at the top of the card and the notch that points at it.
    struct ReadOut {
        Rect box;
        Point textCenter;
        std::array<Point, 5> pointer;
    };

    struct Needle {
        int angle = 0;  ///< on the screen
        Segment front;  ///< from the bar's room to the arrowhead
        Segment tail;
        std::array<Point, 3> head;
        std::array<Point, 10> marks;  ///< of the deviation scale, from left to right
        std::optional<Segment> bar;
        std::array<Point, 3> toFrom;
    };

    explicit HsiGeometry(const HsiState& state) : state_(state) {}

    int cardRadius() const;
    std::array<Tick, kTicks> ticks() const;
    /// "N" for 0, "3" for 30; for multiples of 30.
    static std::string labelText(int value);
    /// The label's box, on the rim's side of its anchor. `width` is the text's; the height is the
    /// label height.
    Rect labelBox(const Tick& tick, double width) const;

    /// "007", "..." without a heading.
    std::string headingText() const;
    ReadOut readOut(double textWidth) const;

    /// Two wedges with a gap at the bearing itself; nothing without a bearing.
    std::optional<std::array<Segment, 8>> bearingMark() const;
    /// Nothing without a course.
    std::optional<Needle> needle() const;

    /// Half the length of an aircraft symbol that leaves the deviation scale free.
    double aircraftHalfLength() const;
    static Font noteFont(double labelHeight) { return {.height = labelHeight * 0.7}; }
    /// The box of a small text where neither the needle nor its bar sweeps: left behind the
    /// aircraft, as seen along the course, and inside the labels.
    Rect noteBox(double width, double height) const;

 private:
    Point at(double radius, int angle) const;
    Point beside(int angle, double along, double right) const;
    /// Radius of the room inside the labels.
    double inner() const;

    HsiState state_;
};

}  // namespace korvel
