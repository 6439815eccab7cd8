#include "window/commands/NavigateCommands.h"

#include <array>

#include "cockpit/CKorvelDoc.h"
#include "window/CKorvelView.h"
#include "window/QtText.h"
#include "window/sheets/ApproachSheet.h"
#include "window/sheets/DirectToSheet.h"
#include "window/sheets/PlanRowSheet.h"
#include "window/sheets/RouteSheet.h"

namespace korvel {
namespace {

/// A command that changes the plan, with Ctrl and a key.
struct PlanChange {
    TextId name;
    Qt::Key key;
    bool (ActivePlan::*make)();
    bool (ActivePlan::*can)() const;
    TextId done;
    TextId otherwise;  ///< said when there is nothing to change
};

}  // namespace

Flight& NavigateCommands::flight() { return host_.document().flight(); }

void NavigateCommands::addTo(QMenu& menu) {
    host_.addCommand(menu, TextId::CommandDirectTo, {Qt::Key_D}, [this] { directTo(); });
    host_.addCommand(menu, TextId::CommandNearest, {Qt::Key_R},
                     [this] { host_.view().showPage(PageId::NearestAirport); });
    host_.addCommand(menu, TextId::CommandApproach, {Qt::Key_A}, [this] { approach(); });
    host_.addCommand(menu, TextId::CommandClearNavigation, {QKeySequence(Qt::CTRL | Qt::Key_D)},
                     [this] { whenPlanIsSafe_([this] { clearNavigation(); }); });
    menu.addSeparator();
    addPlanCommands(menu);
    menu.addSeparator();
    tracking_ = &host_.addCommand(menu, TextId::CommandRecordTrack, {Qt::Key_T},
                                  [this] { recordTrack(tracking_->isChecked()); });
    suspended_ =
        &host_.addCommand(menu, TextId::CommandSuspend, {QKeySequence(Qt::CTRL | Qt::Key_U)},
                          [this] { suspend(suspended_->isChecked()); });
    greyUnless(menu,
               host_.addCommand(menu, TextId::CommandAcknowledge, {Qt::Key_Backspace},
                                [this] {
                                    if (!host_.view().acknowledgeAlarm())
                                        host_.view().say(std::string(text(TextId::NoAlarm)));
                                }),
               [this] { return !host_.document().cockpitData().alarms.empty(); });
    for (QAction* action : {tracking_.data(), suspended_.data()})
        action->setCheckable(true);
    QObject::connect(&menu, &QMenu::aboutToShow, &menu, [this] { updateChecks(); });
    updateChecks();
}

void NavigateCommands::addPlanCommands(QMenu& menu) {
    host_.addCommand(menu, TextId::CommandShowPlan, {Qt::Key_F}, [this] { showPlan(); });
    host_.addCommand(menu, TextId::CommandRoute, {QKeySequence(Qt::SHIFT | Qt::Key_F)},
                     [this] { editRoute(); });
    constexpr std::array kChanges{
        PlanChange{TextId::CommandActivate, Qt::Key_A, &ActivePlan::activate, &ActivePlan::hasPlan,
                   TextId::PlanActivated, TextId::PlanMissing},
        PlanChange{TextId::CommandReverse, Qt::Key_R, &ActivePlan::reverse, &ActivePlan::hasPlan,
                   TextId::PlanReversed, TextId::PlanMissing},
        PlanChange{TextId::CommandUndo, Qt::Key_Z, &ActivePlan::undo, &ActivePlan::canUndo,
                   TextId::PlanUndone, TextId::NothingToUndo},
        PlanChange{TextId::CommandRedo, Qt::Key_Y, &ActivePlan::redo, &ActivePlan::canRedo,
                   TextId::PlanRedone, TextId::NothingToUndo}};
    for (const PlanChange& change : kChanges) {
        QAction& action = host_.addCommand(
            menu, change.name, {QKeySequence(Qt::CTRL | change.key)}, [this, change] {
                // A plan that is not on the screen changes unseen.
                const bool done = (flight().plan().*change.make)();
                host_.view().say(std::string(text(done ? change.done : change.otherwise)));
            });
        greyUnless(menu, action, [this, can = change.can] { return (flight().plan().*can)(); });
    }
}

void NavigateCommands::showPlan() {
    if (host_.view().page() == PageId::FlightPlan)
        return editRoute();
    host_.view().showPage(PageId::FlightPlan);
}

void NavigateCommands::updateChecks() {
    tracking_->setChecked(host_.document().settings().tracking);
    suspended_->setChecked(flight().navigation().suspended());
}

void NavigateCommands::directTo(const PlaceChoice& place) {
    auto sheet = std::make_unique<DirectToSheet>(&host_.window(), host_.document(), place);
    sheet->onDone = [this](const std::string& message) { host_.view().say(message); };
    host_.openSheet(std::move(sheet));
}

void NavigateCommands::approach() {
    const auto& position = host_.document().cockpitData().position;
    const bool wanted = host_.document().settings().apprMode && position;
    approach(wanted ? flight().approach().offered(*position) : std::vector<LandingRunway>());
}

void NavigateCommands::approach(std::vector<LandingRunway> runways) {
    host_.openSheet(
        std::make_unique<ApproachSheet>(&host_.window(), host_.document(), std::move(runways)));
}

void NavigateCommands::editRoute() {
    host_.openSheet(std::make_unique<RouteSheet>(&host_.window(), host_.document()));
}

void NavigateCommands::openPlanRow(std::size_t row) {
    auto sheet = std::make_unique<PlanRowSheet>(&host_.window(), host_.document(), row);
    sheet->onDirectTo = [this](const PlaceChoice& place) { directTo(place); };
    host_.openSheet(std::move(sheet));
}

void NavigateCommands::clearNavigation() {
    flight().navigation().ClearNavigation();
    flight().plan().clear();
    host_.view().say(std::string(text(TextId::NavigationCleared)));
}

void NavigateCommands::suspend(bool on) {
    flight().navigation().setSuspended(on);
    host_.view().say(std::string(text(on ? TextId::Suspended : TextId::Resumed)));
}

void NavigateCommands::recordTrack(bool on) {
    Settings settings = host_.document().settings();
    settings.tracking = on;
    host_.document().applySettings(settings);
    host_.view().say(std::string(text(on ? TextId::TrackOn : TextId::TrackOff)));
}

}  // namespace korvel
