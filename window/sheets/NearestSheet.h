#pragma once

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>

#include "window/sheets/Sheet.h"

namespace korvel {

class CKorvelDoc;

/// Which airports the list of the nearest ones holds. The choice is in force at once.
class NearestSheet final : public Sheet {
 public:
    /// The document must outlive the sheet.
    NearestSheet(QWidget* parent, CKorvelDoc& document);

 private:
    void choose();

    CKorvelDoc& document_;
    QLabel lengthName_;
    QComboBox length_;
    QCheckBox hard_;
};

}  // namespace korvel
