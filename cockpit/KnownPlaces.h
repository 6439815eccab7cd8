#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "geo/GeoPoint.h"
#include "nav/plan/PlaceMatches.h"
#include "nav/plan/PlanWaypoint.h"

namespace korvel {

class DatabaseRecord;
class NavDatabase;
class ProfileFile;

/// A place that is offered before a letter is typed, and why.
struct KnownPlace {
    enum class Reason : std::uint8_t { Recent, Favourite, InPlan };

    PlaceMatch match;
    Reason reason = Reason::Recent;
};

/// The places that the pilot has looked for lately, and those called favourites; both are kept in
/// the profile. Main thread only.
class KnownPlaces {
 public:
    static constexpr std::size_t kMostRecent = 8;
    static constexpr std::size_t kMostFavourites = 24;

    /// Reads them from the profile, which must outlive this.
    explicit KnownPlaces(ProfileFile& profile);

    /// The pilot has looked for the place and taken it.
    void note(const DatabaseRecord& place);
    [[nodiscard]] bool isFavourite(const DatabaseRecord& place) const;
    /// The oldest favourite makes room for a new one too many.
    void setFavourite(const DatabaseRecord& place, bool on);

    /// What to offer as seen from `near`: the latest looked for, the favourites by their
    /// identifiers, the plan's entries in their order; each place once. One that the database no
    /// longer has is left out.
    [[nodiscard]] std::vector<KnownPlace> offered(NavDatabase& database,
                                                  std::span<const PlanWaypoint> plan,
                                                  std::optional<GeoPoint> near) const;

 private:
    /// Identifiers repeat over the world: a key means the place there.
    struct Kept {
        std::string key;
        GeoPoint position;
    };
    using List = std::vector<Kept>;  ///< the latest first

    [[nodiscard]] List load(std::string_view name, std::size_t most) const;
    void store(std::string_view name, const List& list, std::size_t most);
    static bool isSame(const Kept& kept, std::string_view key, GeoPoint position);
    static void moveToFront(List& list, const DatabaseRecord& place, std::size_t most);

    ProfileFile& profile_;
    List recent_;
    List favourites_;
};

}  // namespace korvel
