#pragma once

#include <functional>

#include <QMenu>
#include <QMenuBar>

#include "window/commands/CommandHost.h"

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

 private:
    void showConnected();
    QString keyList() const;

    CommandHost& host_;
    const QMenuBar& menus_;
};

}  // namespace korvel
