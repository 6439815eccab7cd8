#pragma once

#include <deque>
#include <string>
#include <vector>

#include "nav/plan/PlanWaypoint.h"

namespace korvel {

/// The lines that plans were entered by: a plan itself remembers no airways. Whatever brings the
/// same entries back, such as undoing, brings back its line.
class TypedRoutes {
 public:
    static constexpr std::size_t kMost = 50;

    void remember(std::string line, const std::vector<PlanWaypoint>& entries);
    /// The latest line that gave these very entries; empty when none did.
    [[nodiscard]] std::string lineOf(const std::vector<PlanWaypoint>& entries) const;

 private:
    struct Typed {
        std::string line;
        std::vector<PlanWaypoint> entries;
    };

    std::deque<Typed> typed_;  ///< the latest first
};

}  // namespace korvel
