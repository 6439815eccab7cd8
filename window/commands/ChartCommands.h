#pragma once

#include <functional>
#include <memory>
#include <string>

#include <QMenu>
#include <QTimer>

#include "cockpit/ChartCompiling.h"
#include "window/commands/CommandHost.h"

namespace korvel {

/// Databases compiled from open data while the flight goes on, and taken into use when the pilot
/// says so; or at the next start, since they then lie in his folder.
class ChartCommands {
 public:
    /// Loads what lies in the data folders.
    std::function<void()> onTake;

    /// The host must outlive this.
    explicit ChartCommands(CommandHost& host);

    void addTo(QMenu& menu);

 private:
    void show();
    void choose(bool isZip);
    void begin(const std::filesystem::path& download);
    void follow();
    [[nodiscard]] std::string words();

    CommandHost& host_;
    QTimer timer_;
    std::unique_ptr<ChartCompiling> compiling_;
    std::string outcome_;  ///< of the last one
    bool canTake_ = false;
};

}  // namespace korvel
