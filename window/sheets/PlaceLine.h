#pragma once

#include <QString>

#include "geo/Units.h"
#include "nav/plan/PlaceMatches.h"

namespace korvel {

/// A place as a row of a list: identifier, kind, name, how far, and whether its data are old.
QString placeLine(const PlaceMatch& match, DistanceUnit unit);

}  // namespace korvel
