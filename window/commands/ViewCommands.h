#pragma once

#include <QMenu>

#include "window/commands/CommandHost.h"

namespace korvel {

/// The menu View: the map's range and place, the pages, full screen.
class ViewCommands {
 public:
    /// The host must outlive this.
    explicit ViewCommands(CommandHost& host) : host_(host) {}

    void addTo(QMenu& menu);

 private:
    void addMapCommands(QMenu& menu);
    void addPages(QMenu& menu);
    void toggleFullScreen();

    CommandHost& host_;
};

}  // namespace korvel
