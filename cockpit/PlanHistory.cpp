#include "cockpit/PlanHistory.h"

#include <utility>

namespace korvel {

void PlanHistory::remember(PlanStep before) {
    undone_.push_back(std::move(before));
    if (undone_.size() > kMostSteps)
        undone_.pop_front();
    redone_.clear();
}

std::optional<PlanStep> PlanHistory::undo(PlanStep present) {
    return exchange(undone_, redone_, std::move(present));
}

std::optional<PlanStep> PlanHistory::redo(PlanStep present) {
    return exchange(redone_, undone_, std::move(present));
}

std::optional<PlanStep> PlanHistory::exchange(Steps& from, Steps& to, PlanStep present) {
    if (from.empty())
        return std::nullopt;
    PlanStep step = std::move(from.back());
    from.pop_back();
    if (!step.file)
        present.file.reset();
    to.push_back(std::move(present));
    return step;
}

void PlanHistory::clear() {
    undone_.clear();
    redone_.clear();
}

}  // namespace korvel
