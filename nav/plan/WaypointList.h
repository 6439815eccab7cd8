#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace korvel {

class PlaceLookup;

// Waypoint lists (".TXT") are plans as another program writes them:
//   FPL n                                                opens plan n
//   FWP source kind ident N|S deg min E|W deg min alt    a waypoint of it; feet, 0 or less for none
// with a source of p (published) or u (the user's own; other letters are passed over) and a kind of
// a, v, n, i or ?. Lines that begin with "#" and all other lines mean nothing.

/// Converts the list into ".fp" files beside it: "BASE.fp" for plan 0, "BASE_n.fp" for plan n.
/// Published waypoints that the database does not have within 10 NM of where the list has them
/// become the user's own. False when a record cannot be read; plans before it have been written.
///
/// Published waypoints are looked up as the reader of the converted plan will do it: `lookup` is
/// where it starts.
bool ImportWaypointList(const std::filesystem::path& importPath, std::string_view text,
                        const PlaceLookup& lookup);

/// The file that plan `number` of the list is converted into.
std::filesystem::path convertedPlanPath(std::filesystem::path importPath, int number);

/// A file that cannot be written is passed over.
void WriteConvertedPlan(const std::filesystem::path& importPath, std::string_view planText,
                        int number);

}  // namespace korvel
