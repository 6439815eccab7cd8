#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "platform/Clock.h"

namespace korvel {

class Flight;

// Plans, tracks and waypoints from and for other programs, as the pilot wants them. What goes wrong
// is the message, empty on success. User-interface thread only.

/// Writes the plan in the format that the file's ending names: ".gpx", ".fpl", ".kml" or ".fms".
[[nodiscard]] std::string exportPlan(const Flight& flight, const std::filesystem::path& path,
                                     const Clock& clock);
/// The same of the track: ".gpx", ".kml" or ".igc".
[[nodiscard]] std::string exportTrack(const Flight& flight, const std::filesystem::path& path,
                                      const Clock& clock);

/// Another program's waypoints as a user database.
struct KeptWaypoints {
    std::string error{};
    std::filesystem::path file{};
    std::size_t count = 0;
    std::vector<std::string> notes{};  ///< what was changed, a line each
};
/// Keeps them in a new file of that folder, which is named after `name`. Nothing there is written
/// over.
KeptWaypoints keepWaypoints(std::string bytes, const std::filesystem::path& folder,
                            const std::string& name);

}  // namespace korvel
