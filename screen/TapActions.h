#pragma once

#include <memory>
#include <string>

#include "geo/GeoPoint.h"
#include "navdb/records/DatabaseRecord.h"

namespace korvel {

class CKorvelDoc;
struct TapThing;

/// A waypoint of a bare point, which is called by where it lies.
std::shared_ptr<const DatabaseRecord> namedPoint(GeoPoint point, CKorvelDoc& document);

// What the pilot does with what a finger has met. Each returns what to tell the pilot.

/// Flies from here straight to it; a point without a name gets one.
std::string flyDirectTo(const TapThing& thing, CKorvelDoc& document);

/// Puts it into the plan where the way becomes least longer; of a leg the point under the finger
/// into that leg.
std::string insertIntoPlan(const TapThing& thing, CKorvelDoc& document);

}  // namespace korvel
