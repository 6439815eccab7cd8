#pragma once

#include <functional>

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTimer>

#include "cockpit/SimulatorForm.h"
#include "config/Text.h"
#include "window/sheets/Sheet.h"

namespace korvel {

class CKorvelDoc;

/// Starts and stops the simulated aircraft, and changes it while it flies. What the pilot enters
/// as its start is kept in the settings.
class SimulatorSheet final : public Sheet {
 public:
    /// The document must outlive the sheet.
    SimulatorSheet(QWidget* parent, CKorvelDoc& document);

 private:
    void addNumber(QLineEdit& edit, Text name, int step);
    void addSwitches();
    void startOrStop();
    void start();
    /// Gives the flying aircraft what was entered for it; its place stays.
    void change();
    void showState();
    SimulatorForm entered() const;
    /// False when something will not do, which is then said.
    bool read(SimulatorStart& start);

    CKorvelDoc& document_;
    SimulatorForm offered_;
    QFormLayout form_;
    QLineEdit latitude_;
    QLineEdit longitude_;
    QLineEdit heading_;
    QLineEdit speed_;
    QLineEdit altitude_;
    QCheckBox steering_;
    QComboBox timeFactor_;
    QLabel message_;
    QPushButton startStop_;
    QTimer timer_;
    bool told_ = false;  // that it takes the place of the receiver's fix
};

}  // namespace korvel
