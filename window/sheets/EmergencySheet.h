#pragma once

#include <functional>
#include <string>
#include <vector>

#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QTimer>

#include "cockpit/Emergency.h"
#include "window/sheets/Sheet.h"

namespace korvel {

class CKorvelDoc;

/// Where to land in an emergency: the best field chosen, its way, whether it can be glided to, and
/// its frequencies; one more press flies there. The order stays while it is open, the figures do
/// not. Once a field is flown to it also offers the way back.
class EmergencySheet final : public Sheet {
 public:
    /// The document must outlive the sheet.
    EmergencySheet(QWidget* parent, CKorvelDoc& document);

    /// A field is flown to, or the emergency has ended: what to say.
    std::function<void(const std::string&)> onDone;

    void accept() override;

 private:
    void update();
    void showField();

    CKorvelDoc& document_;
    std::vector<EmergencyField> fields_;
    QLabel way_;
    QLabel details_;
    QListWidget list_;
    QPushButton fly_;
    QPushButton end_;
    QTimer timer_;
};

}  // namespace korvel
