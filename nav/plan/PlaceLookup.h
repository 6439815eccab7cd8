#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

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

    /// From now on an identifier that nobody has may lack these letters in front, if there is an
    /// airport with them: what pilots of one country leave out.
    void setIcaoPrefix(std::string prefix) { icaoPrefix_ = std::move(prefix); }
    /// That airport; null when there is none, for a key with its kind, and without a prefix.
    [[nodiscard]] std::shared_ptr<const DatabaseRecord> peekPrefixed(std::string_view ident) const;

    void moveTo(GeoPoint position) { near_ = position; }
    [[nodiscard]] const NavDatabase& database() const { return *database_; }

 private:
    NavDatabase* database_;
    const GeneratedFixes* fixes_;
    std::optional<GeoPoint> near_;
    std::string icaoPrefix_;
};

}  // namespace korvel
