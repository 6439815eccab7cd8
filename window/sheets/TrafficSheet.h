#pragma once

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QListWidget>
#include <QTimer>

#include "config/TrafficChoice.h"
#include "window/sheets/Sheet.h"

namespace korvel {

class CKorvelDoc;

/// Other aircraft: which of them are shown, and a list of these that is kept up to date. The choice
/// is in force at once.
class TrafficSheet final : public Sheet {
 public:
    /// The document must outlive the sheet.
    TrafficSheet(QWidget* parent, CKorvelDoc& document);

 private:
    void choose();
    void update();

    CKorvelDoc& document_;
    QCheckBox shown_;
    QLabel withinName_;
    QComboBox within_;
    QLabel nobody_;
    QListWidget list_;
    QTimer timer_;
};

}  // namespace korvel
