#pragma once

#include <functional>

#include <QMenu>

#include "window/commands/CommandHost.h"

namespace korvel {

/// The menu View: the map's range and place, the pages, full screen.
class ViewCommands {
 public:
    /// The host must outlive this.
    explicit ViewCommands(CommandHost& host) : host_(host) {}

    void addTo(QMenu& menu);

    /// The pilot's choice; a fresh profile has none.
    bool wantsMenuBar();

    /// The pilot has chosen otherwise.
    std::function<void()> onMenuBar;

 private:
    void addMapCommands(QMenu& menu);
    void addPages(QMenu& menu);
    void toggleFullScreen();
    void toggleMenuBar();

    CommandHost& host_;
};

}  // namespace korvel
