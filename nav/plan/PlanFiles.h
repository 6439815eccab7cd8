#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include "nav/plan/FlightPlan.h"
#include "platform/FileSystem.h"

namespace korvel {

class GeneratedFixes;
class NavDatabase;
class PlaceLookup;
class UserRecordStore;

/// The active plan as a file. A ".fp" file has a line for each entry:
///   KEY[@ALTITUDE][ LAT LON]
/// with the altitude in hundreds of feet and, for places that only this program or this user knows,
/// the position in degrees. Lines of remarks begin with ";".
///
/// User-interface thread only; the plan is replaced under its lock.
class PlanFiles {
 public:
    /// Everything must outlive this; `userRecords` may be null.
    PlanFiles(NavDatabase& database, GeneratedFixes& fixes, const UserRecordStore* userRecords,
              GuardedPlan& plan, FileSystem& disk = systemFileSystem())
        : database_(database), fixes_(fixes), userRecords_(userRecords), plan_(plan), disk_(disk) {}

    /// Where the aircraft is: identifiers that repeat are looked up near it.
    void setPresent(std::optional<GeoPoint> present) { present_ = present; }

    /// The text of the active plan, empty without one.
    [[nodiscard]] std::string SavePlan() const;
    /// Writes it; the message for the pilot, empty on success.
    [[nodiscard]] std::string savePlanAs(const std::filesystem::path& path) const;

    /// Loads a ".fp" file or converts and loads a ".TXT" file (see WaypointList.h). The result is
    /// the message for the pilot; when it is not empty the active plan is what it was.
    [[nodiscard]] std::string OpenPlanFile(const std::filesystem::path& path,
                                           std::string_view bytes);
    /// The ".fp" file that holds what was opened last; empty when that failed, or when a converted
    /// list could not be written.
    [[nodiscard]] const std::filesystem::path& openedFile() const { return openedFile_; }
    /// Replaces the active plan; not on a failure, which the message tells.
    [[nodiscard]] std::string LoadPlanText(std::string_view text);

 private:
    [[nodiscard]] std::string openText(std::string_view planText,
                                       const std::filesystem::path& file);
    [[nodiscard]] std::string resolveLine(std::string_view line, PlaceLookup& lookup,
                                          PlanWaypoint& entry);
    [[nodiscard]] bool isOwnPlace(std::string_view key) const;

    NavDatabase& database_;
    GeneratedFixes& fixes_;
    const UserRecordStore* userRecords_;
    GuardedPlan& plan_;
    FileSystem& disk_;
    std::filesystem::path openedFile_;
    std::optional<GeoPoint> present_;
};

}  // namespace korvel
