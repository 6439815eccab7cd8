#pragma once

#include <QMenu>
#include <QPointer>

#include "app/CommandHost.h"

namespace korvel {

class Navigator;

/// The menu Navigate: direct-to, the plan and what is done to it, the track.
class NavigateCommands {
 public:
    /// The host must outlive this.
    explicit NavigateCommands(CommandHost& host) : host_(host) {}

    void addTo(QMenu& menu);

    void directTo(const std::string& identifier = {});
    void editRoute();
    /// What can be done with a row of the plan.
    void openPlanRow(std::size_t row);

 private:
    void addPlanCommands(QMenu& menu);
    void clearNavigation();
    void suspend(bool on);
    void recordTrack(bool on);
    void updateChecks();
    Navigator& navigator();

    CommandHost& host_;
    QPointer<QAction> tracking_;
    QPointer<QAction> suspended_;
};

}  // namespace korvel
