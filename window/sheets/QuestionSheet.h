#pragma once

#include <functional>

#include <QLabel>
#include <QPushButton>

#include "config/Text.h"
#include "window/sheets/Sheet.h"

namespace korvel {

/// Asks before something is done that the pilot may not have meant. Escape and the cross leave it
/// undone.
class QuestionSheet final : public Sheet {
 public:
    /// `yes` is on the button that does it.
    QuestionSheet(QWidget* parent, Text title, Text words, Text yes);

    std::function<void()> onYes;

 private:
    QLabel words_;
    QPushButton yes_;
};

}  // namespace korvel
