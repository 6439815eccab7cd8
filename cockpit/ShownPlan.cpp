#include "cockpit/ShownPlan.h"

#include <utility>

#include "cockpit/ActivePlan.h"
#include "cockpit/PlanViewBuilder.h"
#include "platform/PathText.h"

namespace korvel {

void ShownPlan::update(ActivePlan& plan, const NavDatabase& database, bool positionKnown) {
    const auto held = plan.plan().lock();
    if (!held->has_value()) {
        view_.reset();
        return;
    }
    Source source{.revision = plan.revision(),
                  .active = positionKnown ? (*held)->currentIndex() : std::nullopt,
                  .flown = (*held)->flown()};
    if (view_ && source == source_)
        return;
    source_ = std::move(source);
    PlanView view = makePlanView(**held, database);
    view.active = source_.active;
    view.fileName = textOf(plan.file().filename());
    view.changed = plan.changed();
    view_ = std::make_shared<const PlanView>(std::move(view));
}

}  // namespace korvel
