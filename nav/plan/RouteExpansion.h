#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "nav/plan/GeneratedFixes.h"
#include "nav/plan/PlaceLookup.h"
#include "nav/plan/RouteEntry.h"

namespace korvel {

/// One walk over the words of a route. Where two airways follow each other, the rest of the route
/// is walked by an expansion of its own that begins where the airways meet.
class RouteExpansion {
 public:
    /// Bound on the expansions of one route: airways that share many fixes could otherwise be
    /// joined in more ways than anyone would wait for.
    static constexpr int kMaxTries = 64;

    /// Everything that is referred to must outlive the expansion.
    RouteExpansion(const PlaceLookup& lookup, GeneratedFixes& fixes,
                   const std::vector<std::string>& words, const AirwayTable& airways,
                   int& triesLeft)
        : lookup_(lookup), fixes_(fixes), words_(words), airways_(airways), triesLeft_(triesLeft) {}

    RouteResult run();

 private:
    using Segment = std::vector<std::string>;

    /// The current word as an airway, with its neighbours.
    struct Airway {
        std::string_view name;
        std::string entry{};                                  ///< identifier of the place before it
        std::string exit{};                                   ///< of the place or airway behind it
        const AirwayTable::value_type* nextAirway = nullptr;  ///< null when none follows
    };

    /// The way along a segment from one of its places to another.
    struct Stretch {
        const Segment& segment;
        std::size_t from = 0;
        std::size_t to = 0;
    };

    enum class Step {
        next,     ///< the word is done
        done,     ///< the rest of the route is done as well
        failed,   ///< the route cannot be expanded
        notHere,  ///< this piece of the airway does not lead on
    };

    Step takeWord();
    Step takeAirway(std::string_view name);
    /// False when the word behind cannot be read.
    bool lookAround(Airway& airway);
    Step takeSegment(const Airway& airway, const Segment& segment);
    bool join(const Airway& airway, const Segment& segment, std::size_t entry);
    bool joinAtCrossing(const Airway& airway, const Segment& segment, std::size_t entry);
    /// Flies the stretch, then goes on with the words behind the current one with `first` in front
    /// of them. False, and the first message is kept, when that fails.
    bool continueAt(const Airway& airway, const Stretch& stretch, const std::string& first,
                    const AirwayTable& airways);

    /// Lists the fixes strictly between two places of a segment in the order of travel. The result
    /// is one that is not to be found.
    std::optional<std::string> listBetween(const Segment& segment, std::size_t from, std::size_t to,
                                           PlaceLookup& lookup,
                                           std::vector<PlanWaypoint>& list) const;
    /// Of all fixes of the segment, not valid where one is not to be found. They are looked up
    /// outwards from the one at `start`.
    [[nodiscard]] std::vector<GeoPoint> positions(const Segment& segment, std::size_t start) const;

    Step fail(std::string message);
    void keep(std::string message, std::string_view word);

    PlaceLookup lookup_;
    GeneratedFixes& fixes_;
    const std::vector<std::string>& words_;
    const AirwayTable& airways_;
    int& triesLeft_;
    std::size_t current_ = 0;
    RouteResult result_;
    RouteResult failure_;  ///< the first message, with its word
};

}  // namespace korvel
