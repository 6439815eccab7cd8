#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "geo/GeoPoint.h"

namespace korvel {

class ActivePlan;
class Charts;
class ProfileFile;

/// A point that the pilot has marked.
struct UserFix {
    std::string name;
    GeoPoint position;
};

/// The pilot's own fixes: kept in the profile, and places like any other for look-ups, map and
/// plans. Main thread only.
class UserFixes {
 public:
    /// Reads them from the profile. All of it must outlive this.
    UserFixes(ProfileFile& profile, Charts& charts, const ActivePlan& plan);

    /// In the order in which they were marked.
    [[nodiscard]] std::span<const UserFix> all() const { return fixes_; }
    /// "USR001", or the next one that is free.
    [[nodiscard]] std::string proposedName() const;

    /// Marks a point; the profile is saved at once, and isSaved() tells whether it could be. The
    /// message for the pilot, empty on success: a
    /// name is one that no place and no airway has.
    [[nodiscard]] std::string add(std::string_view name, GeoPoint position);
    /// The message for the pilot, empty on success: one that the plan leads over stays.
    [[nodiscard]] std::string remove(std::size_t index);
    /// Whether the profile's file holds them as they are; otherwise they are good for this run.
    [[nodiscard]] bool isSaved() const { return isSaved_; }

 private:
    [[nodiscard]] std::string refusal(std::string_view name) const;
    [[nodiscard]] std::size_t storedCount() const;
    void load();
    void save();
    void putInForce();

    ProfileFile& profile_;
    Charts& charts_;
    const ActivePlan& plan_;
    std::vector<UserFix> fixes_;
    bool isSaved_ = true;
};

}  // namespace korvel
