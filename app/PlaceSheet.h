#pragma once

#include <functional>
#include <memory>
#include <string>

#include <QLabel>
#include <QPushButton>
#include <QScrollArea>

#include "app/PlaceChoice.h"
#include "app/Sheet.h"
#include "config/StringTable.h"
#include "navdb/DatabaseRecord.h"

namespace korvel {

class CKorvelDoc;
class LabelCache;
class MapColorCache;

/// What is known of a place as lines of text: identifier and name, position, distance and bearing
/// from the aircraft, and of an airport its frequencies and runways.
std::string placeText(const CKorvelDoc& document, const DatabaseRecord& record);

/// A place to read about, to fly to or to put behind the plan.
class PlaceSheet final : public Sheet {
 public:
    /// What an airport's runways are drawn with.
    struct Look {
        LabelCache& labels;
        const MapColorCache& colors;
    };

    /// Document and look outlive the sheet; an airport's record holds its runways already.
    PlaceSheet(QWidget* parent, CKorvelDoc& document, const Look& look,
               std::shared_ptr<const DatabaseRecord> record);

    std::function<void(const PlaceChoice& place)> onDirectTo;
    std::function<void(GeoPoint)> onShow;

 private:
    void addButton(QPushButton& button, TextId text, const std::function<void()>& handler);

    QScrollArea scroll_;
    QPushButton direct_;
    QPushButton add_;
    QPushButton show_;
};

}  // namespace korvel
