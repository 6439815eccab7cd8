#pragma once

#include <QLabel>
#include <QListWidget>

#include "base/Calendar.h"
#include "nav/track/LogBook.h"
#include "window/sheets/Sheet.h"

namespace korvel {

/// The flights of the log, the newest first, and how many hours they are together.
class LogBookSheet final : public Sheet {
 public:
    LogBookSheet(QWidget* parent, const LogBook& book, const LocalTime& today);

 private:
    QLabel totals_;
    QLabel note_;
    QListWidget list_;
};

}  // namespace korvel
