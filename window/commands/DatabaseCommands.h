#pragma once

#include <QMenu>

#include "window/commands/CommandHost.h"

namespace korvel {

/// The navigation databases as the pilot sees them: loading, loading again, the load report.
class DatabaseCommands {
 public:
    /// The host must outlive this.
    explicit DatabaseCommands(CommandHost& host) : host_(host) {}

    void addToFile(QMenu& menu);
    void addToHelp(QMenu& menu);

    /// Loads what lies in the data folders in place of what is loaded. A bar over the map tells how
    /// far it is when that takes long.
    void load();

 private:
    void reload();
    void showReport();

    CommandHost& host_;
};

}  // namespace korvel
