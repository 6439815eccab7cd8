#include "window/sheets/UserFixSheets.h"

#include "cockpit/CKorvelDoc.h"
#include "config/texts/SheetTexts.h"
#include "geo/GeoText.h"
#include "geo/Geodesy.h"
#include "navdb/records/RecordKey.h"
#include "window/QtText.h"

namespace korvel {
namespace {

QString rowText(const UserFix& fix, const CockpitData& data) {
    std::string line = fix.name + "   " + coordinatesText(fix.position);
    if (data.position)
        line += "   " + distanceText(DistanceNm(*data.position, fix.position), data.distanceUnit);
    return toQString(line);
}

}  // namespace

MarkSheet::MarkSheet(QWidget* parent, CKorvelDoc& document, GeoPoint position)
    : Sheet(parent, toQString(kSheetTexts.markTitle),
            QDialogButtonBox::Ok | QDialogButtonBox::Cancel),
      document_(document),
      position_(position),
      where_(toQString(coordinatesText(position))),
      name_(toQString(document.userFixes().proposedName())) {
    buttons().button(QDialogButtonBox::Ok)->setText(toQString(kSheetTexts.markButton));
    message_.setObjectName(QStringLiteral("refusal"));
    addNote(where_);
    addRow(name_);
    addNote(message_);
    setPreferredWidth(11 * kRowPixels);
    connect(&name_, &QLineEdit::textEdited, this, [this] { message_.clear(); });
    name_.setAccessibleName(toQString(kSheetTexts.markTitle));
    name_.selectAll();
    name_.setFocus();
}

void MarkSheet::accept() {
    const std::string name = name_.text().trimmed().toUpper().toStdString();
    if (const std::string message = document_.userFixes().add(name, position_); !message.empty())
        return message_.setText(toQString(message));
    QDialog::accept();
    if (onMarked)
        onMarked(name);
}

UserFixesSheet::UserFixesSheet(QWidget* parent, CKorvelDoc& document)
    : Sheet(parent, toQString(kSheetTexts.marksTitle), QDialogButtonBox::Close),
      document_(document) {
    addTallRow(list_);
    addNote(message_);
    buttons().addButton(&open_, QDialogButtonBox::ActionRole);
    buttons().addButton(&remove_, QDialogButtonBox::ActionRole);
    open_.setText(toQString(kSheetTexts.markOpen));
    remove_.setText(toQString(kSheetTexts.removeRow));
    for (QPushButton* button : {&open_, &remove_}) {
        button->setAutoDefault(false);
        button->setMinimumHeight(kRowPixels);
    }
    setPreferredWidth(13 * kRowPixels);
    connect(
        &open_, &QPushButton::clicked, this, [this] { openFix(); });
    connect(
        &remove_, &QPushButton::clicked, this, [this] { remove(); });
    connect(
        &list_, &QListWidget::itemActivated, this, [this] { openFix(); });
    connect(&list_, &QListWidget::currentRowChanged, this, [this] { askAgain(-1); });
    fill();
    list_.setFocus();
}

void UserFixesSheet::fill() {
    list_.clear();
    for (const UserFix& fix : document_.userFixes().all()) {
        auto* item = new QListWidgetItem(rowText(fix, document_.cockpitData()),
                                         &list_);  // the list owns it
        item->setSizeHint({0, kRowPixels});
    }
    list_.setCurrentRow(0);
    const bool any = list_.count() > 0;
    open_.setEnabled(any);
    remove_.setEnabled(any);
    message_.setText(any ? QString() : toQString(kSheetTexts.marksNone));
}

void UserFixesSheet::openFix() {
    const int row = list_.currentRow();
    if (row < 0 || !isVisible())
        return;
    const std::string key =
        makeRecordKey(kFixKind, document_.userFixes().all()[static_cast<std::size_t>(row)].name);
    QDialog::accept();
    if (onOpen)
        onOpen(key);
}

void UserFixesSheet::askAgain(int row) {
    asked_ = row;
    remove_.setText(toQString(row < 0 ? kSheetTexts.removeRow : kSheetTexts.markReallyRemove));
}

/// The first press asks, the second one removes.
void UserFixesSheet::remove() {
    const int row = list_.currentRow();
    if (row < 0 || row != asked_)
        return askAgain(row);
    askAgain(-1);
    const std::string message = document_.userFixes().remove(static_cast<std::size_t>(row));
    if (!message.empty())
        return message_.setText(toQString(message));
    fill();
    if (onRemoved)
        onRemoved();
}

}  // namespace korvel
