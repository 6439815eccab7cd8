#pragma once

#include <functional>

#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTimer>

#include "cockpit/AircraftForm.h"
#include "window/sheets/Sheet.h"

namespace korvel {

class CKorvelDoc;

/// Asks for the fuel on board and the wind, and tells what is known of both.
class FuelSheet final : public Sheet {
 public:
    /// The document must outlive the sheet.
    FuelSheet(QWidget* parent, CKorvelDoc& document);

    /// The pilot wants to enter the aircraft.
    std::function<void()> onAircraft;

    void accept() override;

 private:
    void showState();

    CKorvelDoc& document_;
    FuelForm offered_;
    QFormLayout form_;
    QLabel fuelState_;
    QLineEdit fuel_;
    QLabel windState_;
    QLineEdit windFrom_;
    QLineEdit windSpeed_;
    QLabel message_;
    QPushButton full_;
    QPushButton aircraft_;
    QTimer timer_;
};

}  // namespace korvel
