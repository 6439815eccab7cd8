#pragma once

#include <string>

namespace korvel {

class CKorvelDoc;
struct TapThing;

// What the pilot does with what a finger has met. Each returns what to tell the pilot.

/// Flies from here straight to it; a point without a name gets one.
std::string flyDirectTo(const TapThing& thing, CKorvelDoc& document);

/// Puts it into the plan where the way becomes least longer; of a leg the point under the finger
/// into that leg.
std::string insertIntoPlan(const TapThing& thing, CKorvelDoc& document);

}  // namespace korvel
