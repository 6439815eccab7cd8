#pragma once

#include <functional>
#include <utility>
#include <vector>

#include <QMenu>
#include <QPointer>

#include "nav/approach/LandingRunway.h"
#include "window/commands/CommandHost.h"
#include "window/sheets/PlaceChoice.h"

namespace korvel {

class Flight;

/// The menu Navigate: direct-to, the plan and what is done to it, the track.
class NavigateCommands {
 public:
    /// The host must outlive this. `removePlan` is a command of another menu.
    NavigateCommands(CommandHost& host, std::function<void()> removePlan)
        : host_(host), removePlan_(std::move(removePlan)) {}

    void addTo(QMenu& menu);

    void directTo(const PlaceChoice& place = {});
    /// Flies to a point so as to arrive on a course.
    void courseToPoint();
    /// Chooses a runway to approach, of the destination or near by.
    void approach();
    void approach(std::vector<LandingRunway> runways);
    /// Where to land at once, and the way back.
    void emergency();
    /// The command that shows it; null before addTo().
    [[nodiscard]] QAction* emergencyCommand() const { return emergency_; }
    /// Which airports the nearest ones are chosen from.
    void chooseNearest();
    /// Shows the plan's page, and on that page the line to change it with.
    void showPlan();
    void editRoute();
    /// What can be done with a row of the plan.
    void openPlanRow(std::size_t row);

 private:
    void addPlanCommands(QMenu& menu);
    void clearNavigation();
    void suspend(bool on);
    void recordTrack(bool on);
    void updateChecks();
    Flight& flight();

    CommandHost& host_;
    std::function<void()> removePlan_;
    QPointer<QAction> emergency_;
    QPointer<QAction> tracking_;
    QPointer<QAction> suspended_;
};

}  // namespace korvel
