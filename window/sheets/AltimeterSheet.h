#pragma once

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTimer>

#include "cockpit/AltimeterForm.h"
#include "window/sheets/Sheet.h"

namespace korvel {

class CKorvelDoc;

/// Brings the altitudes in line with the altimeter: asks for what it reads.
class AltimeterSheet final : public Sheet {
 public:
    /// The document must outlive the sheet.
    AltimeterSheet(QWidget* parent, CKorvelDoc& document);

    void accept() override;

 private:
    AltimeterForm form() const;
    void showState();

    CKorvelDoc& document_;
    QLabel state_;
    QLabel name_;
    QLineEdit reading_;
    QLabel hint_;
    QLabel message_;
    QPushButton remove_;
    QTimer timer_;
};

}  // namespace korvel
