#pragma once

#include <cstddef>
#include <functional>

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include "config/Text.h"
#include "window/sheets/PlaceChoice.h"
#include "window/sheets/Sheet.h"

namespace korvel {

class CKorvelDoc;

/// What can be done with a row of the plan: fly to it, change its altitude, move it, take it out,
/// put words before it.
class PlanRowSheet final : public Sheet {
 public:
    /// The document outlives the sheet.
    PlanRowSheet(QWidget* parent, CKorvelDoc& document, std::size_t row);

    /// Called with the row's place when the pilot wants to fly direct to it.
    std::function<void(const PlaceChoice& place)> onDirectTo;

 private:
    void addButton(QPushButton& button, Text text, const std::function<void()>& handler);
    void setAltitude();
    void insertBefore();
    void move(bool up);
    void remove();

    CKorvelDoc& document_;
    std::size_t row_;
    PlaceChoice place_;
    QLabel title_;
    QPushButton fly_;
    QPushButton direct_;
    QPushButton up_;
    QPushButton down_;
    QPushButton remove_;
    QLineEdit altitude_;
    QPushButton setAltitude_;
    QLineEdit words_;
    QPushButton insert_;
    QLabel message_;
};

}  // namespace korvel
