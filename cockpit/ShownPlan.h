#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

#include "cockpit/PlanView.h"

namespace korvel {

class ActivePlan;
class NavDatabase;

/// The plan as the pages show it, made anew only when something in it has changed. Main thread
/// only.
class ShownPlan {
 public:
    /// After each tick and each command. Where it is not known where the aircraft is nothing is
    /// flown to.
    void update(ActivePlan& plan, const NavDatabase& database, bool positionKnown);

    /// Null without a plan.
    [[nodiscard]] const std::shared_ptr<const PlanView>& view() const { return view_; }

 private:
    /// What the view was made from.
    struct Source {
        std::uint64_t revision = 0;
        std::optional<std::size_t> active{};
        std::vector<bool> flown{};

        friend bool operator==(const Source&, const Source&) = default;
    };

    std::shared_ptr<const PlanView> view_;
    Source source_;
};

}  // namespace korvel
