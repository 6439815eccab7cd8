#pragma once

#include <string>

#include "navdb/records/DatabaseRecord.h"
#include "tools/Invocation.h"

namespace korvel {

/// "lat" and "lon" in degrees, null for no position.
void addPosition(Json& json, const GeoPoint& position);

/// A record with the fields that its class has; coordinates in degrees, what is absent null.
Json recordJson(const DatabaseRecord& record);

/// The same in a line for people, without its end.
std::string recordLine(const DatabaseRecord& record);

/// An airport's runways and frequencies, a line each; empty for other places.
std::string recordDetails(const DatabaseRecord& record);

}  // namespace korvel
