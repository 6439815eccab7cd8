#pragma once

#include <vector>

#include <QLabel>
#include <QListWidget>
#include <QPushButton>

#include "nav/approach/LandingRunway.h"
#include "window/sheets/Sheet.h"

namespace korvel {

class CKorvelDoc;

/// Chooses the runway to approach, and ends the approach.
class ApproachSheet final : public Sheet {
 public:
    /// The document outlives the sheet; `runways` are those of one airport, in the order to be
    /// shown.
    ApproachSheet(QWidget* parent, CKorvelDoc& document, std::vector<LandingRunway> runways);

    void accept() override;

 private:
    void addRunway(const LandingRunway& runway);

    CKorvelDoc& document_;
    std::vector<LandingRunway> runways_;
    QListWidget list_;
    QLabel none_;
    QPushButton leave_;
};

}  // namespace korvel
