#pragma once

#include <functional>
#include <memory>
#include <string>

#include <QHBoxLayout>
#include <QPushButton>
#include <QScrollArea>
#include <QTimer>

#include "config/Text.h"
#include "navdb/records/DatabaseRecord.h"
#include "window/sheets/PlaceChoice.h"
#include "window/sheets/Sheet.h"

namespace korvel {

class CKorvelDoc;

/// What is known of any place as lines of text: identifier and name, position, distance and bearing
/// from the aircraft.
std::string placeText(const CKorvelDoc& document, const DatabaseRecord& record);

/// A place to read about, to fly to or to put behind the plan.
class PlaceSheet : public Sheet {
 public:
    /// What the sheet says of its place, asked again and again: the aircraft flies on.
    using Words = std::function<std::string()>;

    /// The document outlives the sheet, and what `words` refers to as well.
    PlaceSheet(QWidget* parent, CKorvelDoc& document,
               const std::shared_ptr<const DatabaseRecord>& record, Words words);

    std::function<void(const PlaceChoice& place)> onDirectTo;
    std::function<void(GeoPoint)> onShow;
    std::function<void(const std::string& name)> onAdded;  ///< to the plan

 protected:
    /// The words, and to their right whatever else there is.
    QHBoxLayout& content() { return *content_; }
    /// Adds a button at the foot. It stays the caller's.
    void addButton(QPushButton& button, Text text, const std::function<void()>& handler);

 private:
    Words words_;
    QScrollArea scroll_;
    QHBoxLayout* content_;  // the scrolled page's
    QTimer timer_;
    QPushButton direct_;
    QPushButton add_;
    QPushButton favourite_;
    QPushButton show_;
};

}  // namespace korvel
