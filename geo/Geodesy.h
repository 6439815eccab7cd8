#pragma once

#include "geo/GeoPoint.h"

namespace korvel {

// Great circles on a sphere. Angles, coordinates and distances (as central angles) are radians
// unless the name says otherwise; north and east are positive. The formulas are those of Ed
// Williams' public Aviation Formulary, turned so that east is positive. Nothing here allocates or
// reports errors: callers test IsValid() and kNoAngle first.

inline constexpr double kPi = 3.14159265358979323846;
inline constexpr double kTwoPi = 2 * kPi;
inline constexpr double kDegToRad = 0.017453292519943295;
inline constexpr double kRadToDeg = 57.29577951308232;
inline constexpr double kNmPerRadian = 3437.7467707849396;  ///< 10800 / pi
/// Dead reckoning: seconds times knots times this is the distance flown in radians.
inline constexpr double kKnotsToRadiansPerSecond = 8.080228018492267e-8;
/// Two points closer than this in latitude and in longitude are the same (25 feet of latitude).
inline constexpr double kSamePointRad = 1.1970049786594442e-6;

double GreatCircleDistance(double lat1, double lon1, double lat2, double lon2);
double DistanceNm(GeoPoint a, GeoPoint b);

/// Initial course from the first point to the second, 0 up to but not including 2 pi. 0 between
/// points that are the same; from a pole south (pi) or north (0).
double TrueCourse(double lat1, double lon1, double lat2, double lon2);
/// The same in degrees, 0 up to but not including 360.
double TrueCourseDeg(GeoPoint a, GeoPoint b);

/// The point reached from the first one after `distance` along the great circle that starts with
/// the true course `course`. Its longitude lies in -pi up to but not including pi.
void PointAtRadialDistance(double lat1, double lon1, double distance, double course, double& lat,
                           double& lon);

/// The point of the great circle through both points that lies at their mean longitude.
void GreatCircleMidLatitude(double lat1, double lon1, double lat2, double lon2, double& lat,
                            double& lon);

bool SamePoint(GeoPoint a, GeoPoint b);

/// y reduced into 0 up to but not including x, for x above 0.
double PositiveMod(double y, double x);

/// Half away from zero; the end of the range for what lies beyond it, 0 for no number.
int RoundToInt(double value);
int RoundToInt(float value);

double TruncTowardZero(double value);
/// What TruncTowardZero() takes off; it has the sign of the value.
double FractionalPart(double value);

/// The turn from one heading to another in whole degrees, -180 to 180, right turns positive. Half
/// a turn is +180 when the target is the larger number and -180 when it is the smaller: the turn
/// arrow depends on it.
int HeadingDifferenceDeg(double from, double to);

}  // namespace korvel
