#pragma once

#include <deque>

#include <QComboBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include "cockpit/AircraftForm.h"
#include "window/sheets/Sheet.h"

namespace korvel {

class CKorvelDoc;

/// Asks what the pilot's aircraft flies and burns.
class AircraftSheet final : public Sheet {
 public:
    /// The document must outlive the sheet.
    AircraftSheet(QWidget* parent, CKorvelDoc& document);

    void accept() override;

 private:
    CKorvelDoc& document_;
    QFormLayout form_;
    QLineEdit name_;
    QComboBox unit_;
    std::deque<QLineEdit> numbers_;
    QLabel message_;
    QLabel hint_;
    QPushButton remove_;
};

}  // namespace korvel
