#pragma once

#include <functional>
#include <string>

#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>

#include "window/sheets/PlaceSearchBox.h"
#include "window/sheets/Sheet.h"

namespace korvel {

class CKorvelDoc;

/// Direct-to: a place, and if wanted the course to fly to it on and the altitude there. What is
/// refused is said here and nothing else happens.
class DirectToSheet final : public Sheet {
 public:
    /// `place` is what stands in the line at first; the document outlives the sheet.
    DirectToSheet(QWidget* parent, CKorvelDoc& document, const PlaceChoice& place);

    /// Called with the text to show when the leg is set up.
    std::function<void(const std::string& message)> onDone;

 private:
    void accept() override;
    void refuse(const std::string& message);

    CKorvelDoc& document_;
    PlaceSearchBox place_;
    QLineEdit course_;
    QLineEdit altitude_;
    QLabel message_;
};

}  // namespace korvel
