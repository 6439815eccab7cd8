#pragma once

#include <array>

#include "cockpit/CockpitData.h"
#include "pages/NavField.h"
#include "paint/Canvas.h"

namespace korvel {

class MapColorCache;

/// Where the parts of the page "EFIS" stand.
struct EfisLayout {
    double textPx = 0;
    Rect attitude;  ///< between the tapes
    Rect speed;
    Rect altitude;
    Rect verticalSpeed;
    Rect heading;
    Point center;  ///< of the attitude: the aircraft's nose
    double pixelsPerDeg = 0;
    double bankRadius = 0;
};

EfisLayout layOutEfis(double width, double height);

/// The point `right` and `up` pixels from where the horizon would stand in level flight, as an
/// aircraft with this bank and pitch sees it: in a right bank the world turns to the left, with
/// the nose up the horizon sinks.
Point worldPoint(const EfisLayout& layout, double bankDeg, double pitchDeg, double right,
                 double up);

/// How much of the altitudes the tape shows, feet, in the unit that the settings give.
double efisVisibleFt(int altUnit);

/// What the page's tapes tell: beside it a navigation field would tell it twice.
bool isOnEfisPage(NavFieldId field);

/// Attitude, speed, altitude and heading as the receiver tells them, and marked as such. What is
/// absent is crossed out. Fills the whole canvas.
void paintEfisPage(Canvas& canvas, const CockpitData& data, const MapColorCache& colors);

}  // namespace korvel
