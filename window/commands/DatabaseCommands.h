#pragma once

#include <functional>
#include <memory>

#include <QMenu>
#include <QTimer>

#include "window/commands/CommandHost.h"
#include "window/sheets/LoadProgress.h"

namespace korvel {

/// The navigation databases as the pilot sees them: loading, loading again, the load report.
class DatabaseCommands {
 public:
    /// The host must outlive this.
    explicit DatabaseCommands(CommandHost& host);
    ~DatabaseCommands();
    DatabaseCommands(const DatabaseCommands&) = delete;
    DatabaseCommands& operator=(const DatabaseCommands&) = delete;

    void addToFile(QMenu& menu);
    void addToHelp(QMenu& menu);

    /// Loads what lies in the data folders, beside what is in use and while everything goes on. A
    /// bar over the map tells how far it is when that takes long. `whenDone` is told at the end
    /// whether other databases are in use now, or the pilot has broken it off.
    void load(std::function<void(bool changed)> whenDone);

 private:
    void follow();
    void tellResult();
    void showReport();

    CommandHost& host_;
    QTimer timer_;
    std::unique_ptr<LoadProgress> progress_;
    std::function<void(bool changed)> whenDone_;
    bool changed_ = false;
};

}  // namespace korvel
