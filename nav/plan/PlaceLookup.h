#pragma once

#include <memory>
#include <optional>
#include <string_view>

#include "geo/GeoPoint.h"
#include "navdb/records/DatabaseRecord.h"

namespace korvel {

class GeneratedFixes;
class NavDatabase;

/// Looks words up one after the other. Identifiers repeat over the world: each look-up is made near
/// the place that the one before it found, the first one near the aircraft, if there is a position.
/// A generated fix is found by its key.
class PlaceLookup {
 public:
    PlaceLookup(NavDatabase& database, const GeneratedFixes& fixes, std::optional<GeoPoint> present)
        : database_(&database), fixes_(&fixes), near_(present) {}

    /// Null when there is none; then the next look-up is made near the same place as this one.
    std::shared_ptr<const DatabaseRecord> next(std::string_view key);
    /// The same without moving on.
    [[nodiscard]] std::shared_ptr<const DatabaseRecord> peek(std::string_view key) const;

    /// The same without the generated fixes.
    [[nodiscard]] std::shared_ptr<const DatabaseRecord> peekDatabase(std::string_view key) const;

    void moveTo(GeoPoint position) { near_ = position; }
    [[nodiscard]] const NavDatabase& database() const { return *database_; }

 private:
    NavDatabase* database_;
    const GeneratedFixes* fixes_;
    std::optional<GeoPoint> near_;
};

}  // namespace korvel
