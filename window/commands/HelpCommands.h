#pragma once

#include <functional>
#include <vector>

#include <QMenu>
#include <QMenuBar>

#include "window/commands/CommandHost.h"
#include "window/sheets/ConnectedSheet.h"

namespace korvel {

/// What the menu Help has besides the databases: first flight, keys, what is connected.
class HelpCommands {
 public:
    /// Both must outlive this. The keys are those of the commands in `menus`.
    HelpCommands(CommandHost& host, const QMenuBar& menus) : host_(host), menus_(menus) {}

    void addTo(QMenu& menu);
    void addAbout(QMenu& menu);

    /// Tells the first time what is connected and loaded, and what to do next.
    void welcome();

    // What can be done next.
    std::function<void()> onPort;
    std::function<void()> onSimulator;
    std::function<void()> onPlan;
    /// The colours that can be had, for the first time.
    std::function<std::vector<ConnectedSheet::Choice>()> onColors;

 private:
    void showConnected(const std::vector<ConnectedSheet::Choice>& colors);
    QString keyList() const;

    CommandHost& host_;
    const QMenuBar& menus_;
};

}  // namespace korvel
