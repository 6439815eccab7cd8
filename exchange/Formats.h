#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "exchange/ExportPoint.h"
#include "exchange/ForeignPlan.h"

namespace korvel {

// Other programs' files. What a file is its content says, not its name. A read file's `format` is
// its name in kForeignFormats ("gpx"), empty where the content is none of them. Any bytes do no
// harm.

ForeignPlan readForeignPlan(std::string bytes, std::string_view& format);
ForeignTrack readForeignTrack(std::string bytes, std::string_view& format);
ForeignWaypoints readForeignWaypoints(std::string bytes, std::string_view& format);

/// What a file holds that this program can take.
struct ForeignContent {
    bool plan = false;
    bool track = false;
    bool waypoints = false;
};
struct ForeignFile {
    ForeignContent content;
    ForeignTrack track;  ///< as readForeignTrack() gives it; empty where there is none
};
/// What a file holds, with its track, which may be large: read once. Nothing of it for this
/// program's own files.
ForeignFile readForeignFile(std::string bytes);

inline constexpr std::array<std::string_view, 4> kPlanExports{"gpx", "fpl", "kml", "fms"};
inline constexpr std::array<std::string_view, 3> kTrackExports{"gpx", "kml", "igc"};

/// The plan in one of kPlanExports; nothing for another name.
std::optional<std::string> planAs(std::string_view format, std::string_view name,
                                  std::span<const ExportPoint> points, std::int64_t nowUnixS);
/// The track in one of kTrackExports; nothing for another name.
std::optional<std::string> trackAs(std::string_view format,
                                   std::span<const std::optional<ForeignTrackPoint>> points);

}  // namespace korvel
