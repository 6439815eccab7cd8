#include "window/commands/NavigateCommands.h"

#include <array>

#include "cockpit/CKorvelDoc.h"
#include "config/texts/AircraftTexts.h"
#include "config/texts/CommandTexts.h"
#include "config/texts/MessageTexts.h"
#include "screen/Screen.h"
#include "window/QtText.h"
#include "window/sheets/ApproachSheet.h"
#include "window/sheets/CourseSheet.h"
#include "window/sheets/DirectToSheet.h"
#include "window/sheets/EmergencySheet.h"
#include "window/sheets/NearestSheet.h"
#include "window/sheets/PlanRowSheet.h"
#include "window/sheets/RouteSheet.h"

namespace korvel {
namespace {

/// A command that changes the plan, with Ctrl and a key.
struct PlanChange {
    Text name;
    Qt::Key key;
    bool (ActivePlan::*make)();
    bool (ActivePlan::*can)() const;
    Text done;
    Text otherwise;  ///< said when there is nothing to change
};

}  // namespace

Flight& NavigateCommands::flight() { return host_.document().flight(); }

void NavigateCommands::addTo(QMenu& menu) {
    emergency_ = &host_.addCommand(
        menu, kAircraftTexts.commandEmergency, {Qt::Key_E}, [this] { emergency(); });
    host_.addCommand(
        menu, kCommandTexts.commandDirectTo, {Qt::Key_D}, [this] { directTo(); });
    host_.addCommand(
        menu, kCommandTexts.commandCourse, {QKeySequence(Qt::SHIFT | Qt::Key_D)},
        [this] { courseToPoint(); });
    host_.addCommand(
        menu, kCommandTexts.commandNearest, {Qt::Key_R},
        [this] { host_.screen().showPage(PageId::NearestAirport); });
    host_.addCommand(
        menu, kAircraftTexts.commandNearest, {QKeySequence(Qt::SHIFT | Qt::Key_R)},
        [this] { chooseNearest(); });
    host_.addCommand(
        menu, kCommandTexts.commandApproach, {Qt::Key_A}, [this] { approach(); });
    host_.addCommand(menu, kCommandTexts.commandClearNavigation,
                     {QKeySequence(Qt::CTRL | Qt::Key_D)}, [this] { clearNavigation(); });
    menu.addSeparator();
    addPlanCommands(menu);
    menu.addSeparator();
    tracking_ = &host_.addCommand(
        menu, kCommandTexts.commandRecordTrack, {Qt::Key_T},
        [this] { recordTrack(tracking_->isChecked()); });
    suspended_ = &host_.addCommand(
        menu, kCommandTexts.commandSuspend, {QKeySequence(Qt::CTRL | Qt::Key_U)},
        [this] { suspend(suspended_->isChecked()); });
    greyUnless(
        menu,
        host_.addCommand(menu, kCommandTexts.commandAcknowledge, {Qt::Key_Backspace},
                         [this] {
                             if (!host_.screen().acknowledgeAlarm())
                                 host_.screen().say(std::string(text(kMessageTexts.noAlarm)));
                         }),
        [this] { return !host_.document().cockpitData().alarms.empty(); });
    for (QAction* action : {tracking_.data(), suspended_.data()})
        action->setCheckable(true);
    QObject::connect(&menu, &QMenu::aboutToShow, &menu, [this] { updateChecks(); });
    updateChecks();
}

void NavigateCommands::addPlanCommands(QMenu& menu) {
    host_.addCommand(
        menu, kCommandTexts.commandShowPlan, {Qt::Key_F}, [this] { showPlan(); });
    host_.addCommand(
        menu, kCommandTexts.commandRoute, {QKeySequence(Qt::SHIFT | Qt::Key_F)},
        [this] { editRoute(); });
    greyUnless(menu,
               host_.addCommand(menu, kCommandTexts.commandRemovePlan,
                                {QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_D)}, removePlan_),
               [this] { return flight().plan().hasPlan(); });
    constexpr std::array kChanges{
        PlanChange{kCommandTexts.commandActivate, Qt::Key_A, &ActivePlan::activate,
                   &ActivePlan::hasPlan, kMessageTexts.planActivated, kMessageTexts.planMissing},
        PlanChange{kCommandTexts.commandReverse, Qt::Key_R, &ActivePlan::reverse,
                   &ActivePlan::hasPlan, kMessageTexts.planReversed, kMessageTexts.planMissing},
        PlanChange{kCommandTexts.commandUndo, Qt::Key_Z, &ActivePlan::undo, &ActivePlan::canUndo,
                   kMessageTexts.planUndone, kMessageTexts.nothingToUndo},
        PlanChange{kCommandTexts.commandRedo, Qt::Key_Y, &ActivePlan::redo, &ActivePlan::canRedo,
                   kMessageTexts.planRedone, kMessageTexts.nothingToUndo}};
    for (const PlanChange& change : kChanges) {
        QAction& action = host_.addCommand(
            menu, change.name, {QKeySequence(Qt::CTRL | change.key)},
            [this, change] {
                // A plan that is not on the screen changes unseen.
                const bool done = (flight().plan().*change.make)();
                host_.screen().say(std::string(text(done ? change.done : change.otherwise)));
            });
        greyUnless(menu, action, [this, can = change.can] { return (flight().plan().*can)(); });
    }
}

void NavigateCommands::showPlan() {
    if (host_.screen().page() == PageId::FlightPlan)
        return editRoute();
    host_.screen().showPage(PageId::FlightPlan);
}

void NavigateCommands::updateChecks() {
    tracking_->setChecked(host_.document().settings().tracking);
    suspended_->setChecked(flight().navigation().suspended());
}

void NavigateCommands::directTo(const PlaceChoice& place) {
    auto sheet = std::make_unique<DirectToSheet>(&host_.window(), host_.document(), place);
    sheet->onDone = [this](const std::string& message) { host_.screen().say(message); };
    host_.openSheet(std::move(sheet));
}

void NavigateCommands::emergency() {
    auto sheet = std::make_unique<EmergencySheet>(&host_.window(), host_.document());
    sheet->onDone = [this](const std::string& message) {
        host_.screen().choosePage(PageId::Map);
        host_.screen().say(message);
    };
    host_.openSheet(std::move(sheet));
}

void NavigateCommands::chooseNearest() {
    host_.screen().showPage(PageId::NearestAirport);
    host_.openSheet(std::make_unique<NearestSheet>(&host_.window(), host_.document()));
}

void NavigateCommands::courseToPoint() {
    auto sheet = std::make_unique<CourseSheet>(&host_.window(), host_.document());
    sheet->onDone = [this](const std::string& message) { host_.screen().say(message); };
    host_.openSheet(std::move(sheet));
}

void NavigateCommands::approach() {
    const auto& position = host_.document().cockpitData().position;
    const bool wanted = host_.document().settings().apprMode && position;
    approach(wanted ? flight().offeredApproaches(*position) : std::vector<LandingRunway>());
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

/// Ends a direct-to; the plan goes on at once.
void NavigateCommands::clearNavigation() {
    ActiveNavigation& navigation = flight().navigation();
    const bool planned = flight().plan().hasPlan();
    if (planned && !navigation.directLeg())
        return host_.screen().say(std::string(text(kMessageTexts.noDirect)));
    navigation.ClearNavigation();
    navigation.UpdateActiveLeg();
    host_.screen().say(
        std::string(text(planned ? kMessageTexts.directEnded : kMessageTexts.navigationCleared)));
}

void NavigateCommands::suspend(bool on) {
    flight().navigation().setSuspended(on);
    host_.screen().say(std::string(text(on ? kMessageTexts.suspended : kMessageTexts.resumed)));
}

void NavigateCommands::recordTrack(bool on) {
    Settings settings = host_.document().settings();
    settings.tracking = on;
    host_.document().applySettings(settings);
    host_.screen().say(std::string(text(on ? kMessageTexts.trackOn : kMessageTexts.trackOff)));
}

}  // namespace korvel
