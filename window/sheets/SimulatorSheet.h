#pragma once

#include <cstdint>
#include <optional>
#include <string>

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
    void addPlaces();
    void addNumber(QLineEdit& edit, Text name, int step);
    void addSwitches();
    void choose(GeoPoint place, std::optional<std::int32_t> altitudeFt);
    bool startAtNamed();
    void offer(const SimulatorStart& start);
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
    std::string named_;  ///< the identifier whose place is shown
    QFormLayout form_;
    QLineEdit place_;
    QPushButton here_;
    QPushButton planStart_;
    QLineEdit latitude_;
    QLineEdit longitude_;
    QLineEdit heading_;
    QLineEdit speed_;
    QLineEdit altitude_;
    QLineEdit windFrom_;
    QLineEdit windSpeed_;
    QCheckBox steering_;
    QCheckBox follows_;
    QComboBox timeFactor_;
    QLabel message_;
    QPushButton startStop_;
    QTimer timer_;
    bool told_ = false;  // that it takes the place of the receiver's fix
};

}  // namespace korvel
