#pragma once

#include <QLabel>
#include <QLineEdit>

#include "window/sheets/Sheet.h"

namespace korvel {

class CKorvelDoc;

/// The route line: identifiers and airways, each word checked while it is typed. Nothing changes
/// until the whole line is accepted.
class RouteSheet final : public Sheet {
 public:
    /// The document outlives the sheet. The line shows the plan in force.
    RouteSheet(QWidget* parent, CKorvelDoc& document);

 private:
    void accept() override;
    void check();

    CKorvelDoc& document_;
    QLineEdit line_;
    QLabel words_;
    QLabel message_;
};

}  // namespace korvel
