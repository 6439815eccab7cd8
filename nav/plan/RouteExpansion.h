#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
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

    using Segment = std::vector<std::string>;

    /// Where two airways meet, and the rest of the route begins.
    struct Junction {
        std::shared_ptr<const DatabaseRecord> place;
        /// The piece that the second airway is from here on, leading through the place, which
        /// stands there by its key; null when the airway leads through it by itself. Only for this
        /// one time: whoever names the airway again means it as it is.
        const Segment* through = nullptr;
    };

    /// Everything that is referred to must outlive the expansion.
    RouteExpansion(const PlaceLookup& lookup, GeneratedFixes& fixes,
                   const std::vector<std::string>& words, const AirwayTable& airways,
                   int& triesLeft, Junction start)
        : lookup_(lookup),
          fixes_(fixes),
          words_(words),
          airways_(airways),
          triesLeft_(triesLeft),
          start_(std::move(start)),
          onAirway_(start_.place) {}

    RouteResult run();

 private:
    using Records = std::vector<std::shared_ptr<const DatabaseRecord>>;

    /// The current word as an airway, with its neighbours.
    struct Airway {
        std::string_view name;
        std::string entry{};          ///< identifier of the place before it
        std::string_view entryKey{};  ///< how it was typed: an identifier or a key
        std::string exit{};           ///< of the place or airway behind it
        std::string_view exitKey{};
        const AirwayTable::value_type* nextAirway = nullptr;  ///< null when none follows
    };

    /// The way along a segment from one of its places to another.
    struct Stretch {
        const Segment& segment;
        const Records& places;  ///< of the segment's identifiers
        std::size_t from = 0;
        std::size_t to = 0;
    };

    enum class Step {
        Next,     ///< the word is Done
        Done,     ///< the rest of the route is done as well
        Failed,   ///< the route cannot be expanded
        NotHere,  ///< this piece of the airway does not lead on
    };

    Step takeWord();
    /// Whether the current word is the airway that leads through the junction.
    [[nodiscard]] bool beginsThrough() const { return current_ == 1 && start_.through != nullptr; }
    Step takeAirway(std::string_view name);
    /// False when the word behind cannot be read.
    bool lookAround(Airway& airway);
    Step takeSegment(const Airway& airway, const Segment& segment);
    bool join(const Airway& airway, const Segment& segment, const Records& places,
              std::size_t entry);
    bool joinAtCrossing(const Airway& airway, const Segment& segment, const Records& places,
                        std::size_t entry);
    /// Flies the stretch, then goes on from the junction, which is called `name`, with the words
    /// behind the current one. False, and the first message is kept, when that fails.
    bool continueAt(const Airway& airway, const Stretch& stretch, const std::string& name,
                    const Junction& junction);

    /// The places of the segment from the entry to the exit; without an exit all of them.
    [[nodiscard]] Records placesOf(const Airway& airway, Segment segment, std::size_t entry,
                                   std::optional<std::size_t> exit) const;
    /// Appends the fixes strictly between the ends in the order of travel; the last element of the
    /// list, the entry, becomes the place that lies on the airway. The result is a fix that is not
    /// to be found.
    std::optional<std::string> fly(const Stretch& stretch, std::vector<PlanWaypoint>& list) const;

    Step fail(std::string message);
    void keep(std::string message, std::string_view word, std::size_t number);

    PlaceLookup lookup_;
    GeneratedFixes& fixes_;
    const std::vector<std::string>& words_;
    const AirwayTable& airways_;
    int& triesLeft_;
    Junction start_;
    std::size_t current_ = 0;
    /// The place of the next word, where the airway before it says which one is meant.
    std::shared_ptr<const DatabaseRecord> onAirway_;
    bool entryIsCertain_ = false;  ///< an airway has said which place the last entry is
    RouteResult result_;
    RouteResult failure_;  ///< the first message, with its word
};

}  // namespace korvel
