#pragma once

#include <QListWidget>
#include <QString>

#include "geo/Units.h"
#include "nav/plan/PlaceMatches.h"

namespace korvel {

/// Has the list show places in columns: identifier, name over kind and remarks, how far at the
/// right. Its rows come from addPlaceRow().
void showPlaces(QListWidget& list);

/// Adds a place and why it is offered, which may be empty, and whether its data are old. The row's
/// text has all of it, for who does not see.
void addPlaceRow(QListWidget& list, const PlaceMatch& match, DistanceUnit unit, const QString& why);

}  // namespace korvel
