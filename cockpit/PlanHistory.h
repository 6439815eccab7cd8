#pragma once

#include <cstddef>
#include <deque>
#include <filesystem>
#include <optional>
#include <string>

#include "nav/leg/ActiveNavigation.h"
#include "nav/plan/FlightPlan.h"

namespace korvel {

/// The pilot's file of a plan.
struct PlanFile {
    std::filesystem::path path;  ///< empty for none
    std::string text;            ///< what it holds, as the plan would be saved
};

/// What there was before a change of the plan.
struct PlanStep {
    std::optional<FlightPlan> plan{};  ///< nothing where there was none
    ActiveNavigation::Flown flown{};
    bool endedDirect = false;            ///< the change ended a direct-to, which is in `flown`
    std::optional<PlanFile> file{};      ///< only where the change gave it up
    std::optional<GeoPoint> aircraft{};  ///< where it was
};

/// What was before and after the last changes of the plan, to go back and forth between.
class PlanHistory {
 public:
    static constexpr std::size_t kMostSteps = 50;

    /// Of a change. What had been undone cannot be redone any more.
    void remember(PlanStep before);
    [[nodiscard]] bool canUndo() const { return !undone_.empty(); }
    [[nodiscard]] bool canRedo() const { return !redone_.empty(); }
    /// What to put in force in the place of `present`, which has its file; nothing when there is no
    /// step.
    std::optional<PlanStep> undo(PlanStep present);
    std::optional<PlanStep> redo(PlanStep present);
    /// Another plan was opened.
    void clear();

 private:
    using Steps = std::deque<PlanStep>;  ///< the last step last

    static std::optional<PlanStep> exchange(Steps& from, Steps& to, PlanStep present);

    Steps undone_;
    Steps redone_;
};

}  // namespace korvel
