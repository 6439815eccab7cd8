#pragma once

#include <functional>
#include <string>

#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>

#include "geo/GeoPoint.h"
#include "window/sheets/Sheet.h"

namespace korvel {

class CKorvelDoc;

/// Names a point that is being marked.
class MarkSheet final : public Sheet {
 public:
    /// The document outlives the sheet.
    MarkSheet(QWidget* parent, CKorvelDoc& document, GeoPoint position);

    std::function<void(const std::string& name)> onMarked;

 private:
    void accept() override;

    CKorvelDoc& document_;
    GeoPoint position_;
    QLabel where_;
    QLineEdit name_;
    QLabel message_;
};

/// The pilot's own fixes: look at one, or remove it.
class UserFixesSheet final : public Sheet {
 public:
    /// The document outlives the sheet.
    UserFixesSheet(QWidget* parent, CKorvelDoc& document);

    std::function<void(const std::string& key)> onOpen;
    std::function<void()> onRemoved;

 private:
    void fill();
    void openFix();
    void remove();
    void askAgain(int row);

    CKorvelDoc& document_;
    QListWidget list_;
    QPushButton open_;
    QPushButton remove_;
    QLabel message_;
    int asked_ = -1;  // the row that goes when "Remove" is pressed once more
};

}  // namespace korvel
