#pragma once

#include "map/MeasureTool.h"

namespace korvel {

class MapProjection;
class NavDatabase;
struct CockpitData;
struct PlaceSet;

/// What the ruler's ends can stand on.
struct RulerGround {
    const MapProjection& projection;
    int rangeNm;
    const PlaceSet& places;
    const CockpitData& data;
    const NavDatabase& database;  ///< for the variation
};

/// What lies under a finger: a place or the aircraft when it is near, else the point itself.
MeasureEnd rulerEndAt(Point finger, const RulerGround& ground);

}  // namespace korvel
