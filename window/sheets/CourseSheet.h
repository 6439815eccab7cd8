#pragma once

#include <functional>
#include <string>

#include <QLabel>
#include <QLineEdit>

#include "geo/GeoPoint.h"
#include "window/sheets/PlaceSearchBox.h"
#include "window/sheets/Sheet.h"

namespace korvel {

class CKorvelDoc;

/// Flies to a point so as to arrive on a course: a place, or a position in degrees.
class CourseSheet final : public Sheet {
 public:
    /// The document outlives the sheet.
    CourseSheet(QWidget* parent, CKorvelDoc& document);

    /// Called with the text to show when the leg is set up.
    std::function<void(const std::string& message)> onDone;

 private:
    struct Point {
        GeoPoint position;  ///< not valid when there is none
        std::string name;
    };

    void accept() override;
    void refuse(const std::string& message, QWidget& where);
    Point point();

    CKorvelDoc& document_;
    PlaceSearchBox place_;
    QLineEdit course_;
    QLabel message_;
};

}  // namespace korvel
