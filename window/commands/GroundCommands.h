#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <vector>

#include <QMenu>
#include <QTimer>

#include "cockpit/GroundImporting.h"
#include "window/commands/CommandHost.h"
#include "window/sheets/LoadProgress.h"

namespace korvel {

/// Base maps, heights, airspaces and obstacles brought from a stick or a download into the pilot's
/// folder, and taken into use at once.
class GroundCommands {
 public:
    /// Other ground files lie in the data folders.
    std::function<void()> onOtherFiles;

    /// The host must outlive this.
    explicit GroundCommands(CommandHost& host);

    void addTo(QMenu& menu);
    /// Does so with these files.
    void import(std::vector<std::filesystem::path> files);

 private:
    void choose();
    void follow();

    CommandHost& host_;
    QTimer timer_;
    std::unique_ptr<GroundImporting> importing_;
    std::unique_ptr<LoadProgress> progress_;
};

}  // namespace korvel
