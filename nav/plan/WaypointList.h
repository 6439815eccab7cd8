#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include "platform/FileSystem.h"

namespace korvel {

class PlaceLookup;

// Waypoint lists (".TXT") are plans as another program writes them:
//   FPL n                                                opens plan n
//   FWP source kind ident N|S deg min E|W deg min alt    a waypoint of it; feet, 0 or less for none
// with a source of p (published) or u (the user's own; other letters are passed over) and a kind of
// a, v, n, i or ?. Lines that begin with "#" and all other lines mean nothing.

/// A plan of a list as a ".fp" file holds it.
struct ConvertedPlan {
    std::string text;
    std::filesystem::path file;  ///< empty when it could not be written
};

/// Converts the list into ".fp" files beside it: "BASE.fp" for plan 0, "BASE_n.fp" for plan n.
/// Published waypoints that the database does not have within 10 NM of where the list has them
/// become the user's own. Returns plan 0; nothing when the list has none or a record cannot be
/// read, and then the plans before it have been written.
///
/// Published waypoints are looked up as the reader of the converted plan will do it: `lookup` is
/// where it starts.
std::optional<ConvertedPlan> ImportWaypointList(const std::filesystem::path& importPath,
                                                std::string_view text, const PlaceLookup& lookup,
                                                FileSystem& disk = systemFileSystem());

/// Writes plan `number` of the list; returns it also when its file cannot be written.
ConvertedPlan WriteConvertedPlan(const std::filesystem::path& importPath, std::string planText,
                                 int number, FileSystem& disk = systemFileSystem());

}  // namespace korvel
