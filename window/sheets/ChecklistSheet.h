#pragma once

#include <cstddef>
#include <string>

#include <QComboBox>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>

#include "window/sheets/Sheet.h"

namespace korvel {

class Checklists;

/// A checklist to go through: a tap, Enter or Space checks a row and goes on to the next one that
/// is not checked. Of several lists one is chosen above.
class ChecklistSheet final : public Sheet {
 public:
    /// The lists must outlive the sheet; `folder` is where the pilot's own belong.
    ChecklistSheet(QWidget* parent, Checklists& lists, const std::string& folder);

    bool eventFilter(QObject* watched, QEvent* event) override;

 private:
    void choose(int which);
    void toggle(const QListWidgetItem& item);
    void showRow(std::size_t row);
    void showState();
    void goTo(std::size_t row);

    Checklists& lists_;
    std::size_t which_ = 0;
    QComboBox choice_;
    QLabel state_;
    QListWidget rows_;
    QPushButton reset_;
};

}  // namespace korvel
