#pragma once

#include <QMenu>

#include "cockpit/Checklists.h"
#include "window/commands/CommandHost.h"

namespace korvel {

/// What a pilot keeps on paper otherwise: checklists and the log book.
class BookCommands {
 public:
    /// The host must outlive this.
    explicit BookCommands(CommandHost& host) : host_(host) {}

    void addTo(QMenu& menu);

 private:
    void openChecklists();
    void openLogBook();

    CommandHost& host_;
    Checklists checklists_;
};

}  // namespace korvel
