#include "nav/plan/TypedRoutes.h"

#include <algorithm>
#include <utility>

#include "geo/Geodesy.h"

namespace korvel {
namespace {

bool isSame(const PlanWaypoint& a, const PlanWaypoint& b) {
    return a.text == b.text && a.altitudeFt == b.altitudeFt &&
           SamePoint(a.position(), b.position());
}

}  // namespace

void TypedRoutes::remember(std::string line, const std::vector<PlanWaypoint>& entries) {
    typed_.push_front({std::move(line), entries});
    if (typed_.size() > kMost)
        typed_.pop_back();
}

std::string TypedRoutes::lineOf(const std::vector<PlanWaypoint>& entries) const {
    const auto found = std::ranges::find_if(typed_, [&entries](const Typed& typed) {
        return std::ranges::equal(typed.entries, entries, isSame);
    });
    return found != typed_.end() ? found->line : std::string();
}

}  // namespace korvel
