#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "geo/Units.h"
#include "nav/plan/PlaceMatches.h"
#include "nav/plan/PlanWaypoint.h"

namespace korvel {

class GeneratedFixes;
class NavDatabase;

/// A word of a route line that is being typed.
struct CheckedWord {
    enum class Kind : std::uint8_t { Place, Airway, Unknown, BadAltitude };

    std::string word;
    Kind kind = Kind::Unknown;
    std::int32_t altitudeFt = kNoAltitudeFt;
    std::shared_ptr<const DatabaseRecord> record;  ///< of a place
    /// Why the route cannot be expanded here; empty where it can.
    std::string message;
};

/// What would become of a route line if it were entered now.
struct RouteCheck {
    std::vector<CheckedWord> words;
    std::string error;          ///< the message of the whole line; empty when it can be flown
    std::size_t errorWord = 0;  ///< which of the words it is about
    std::size_t count = 0;      ///< entries that it gives
    double totalNm = 0.0;
    std::vector<std::string> hints;  ///< what to look at again; refuses nothing
};

/// What a route is entered with besides its line; see RouteEntry.
struct RouteGround {
    std::optional<GeoPoint> present{};
    std::string icaoPrefix{};
};

/// Looks at a line without entering it: `fixes` stay as they are. For every stroke of a key.
/// Hints give distances in `unit`.
RouteCheck checkRoute(std::string_view line, NavDatabase& database, const GeneratedFixes& fixes,
                      const RouteGround& ground, DistanceUnit unit = DistanceUnit::NauticalMiles);

/// The places, more than a mile apart, that the first word of a line may mean, when it cannot be
/// known which of them is meant: with no position, or with all of them more than kSurelyMeantNm
/// away. They are seen from where the line goes on, the nearest first, or from nowhere when nothing
/// follows. Fewer than two mean that there is nothing to ask.
std::vector<PlaceMatch> firstPlaces(std::string_view line, NavDatabase& database,
                                    std::optional<GeoPoint> present);

}  // namespace korvel
