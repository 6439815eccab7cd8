#pragma once

#include <functional>
#include <memory>
#include <optional>

#include <QLabel>

#include "navdb/records/DatabaseRecord.h"
#include "window/sheets/PlaceSearchBox.h"
#include "window/sheets/Sheet.h"

namespace korvel {

class CKorvelDoc;

/// Finds a place by its identifier, its name or its town, with a receiver or without.
class FindSheet final : public Sheet {
 public:
    /// The nearest to `near` come first; the document outlives the sheet.
    FindSheet(QWidget* parent, CKorvelDoc& document, std::optional<GeoPoint> near);

    std::function<void(std::unique_ptr<DatabaseRecord> record)> onFound;

 private:
    void accept() override;

    CKorvelDoc& document_;
    PlaceSearchBox place_;
    QLabel message_;
};

}  // namespace korvel
