#pragma once

#include <QMenu>
#include <QPointer>

#include "app/CommandHost.h"

namespace korvel {

/// What the menu Options has besides the colour schemes: the simulator, the receiver, the
/// preferences.
class OptionCommands {
 public:
    /// The host must outlive this.
    explicit OptionCommands(CommandHost& host) : host_(host) {}

    void addTo(QMenu& menu);

    /// Starts the simulator where and how it would be offered.
    void simulate(bool on);

 private:
    void choosePort();

    CommandHost& host_;
    QPointer<QAction> simulating_;
};

}  // namespace korvel
