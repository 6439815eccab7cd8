#include "window/sheets/FindSheet.h"

#include <QPushButton>

#include "cockpit/CKorvelDoc.h"
#include "window/QtText.h"

namespace korvel {

FindSheet::FindSheet(QWidget* parent, CKorvelDoc& document, std::optional<GeoPoint> near)
    : Sheet(parent, toQString(TextId::FindTitle), QDialogButtonBox::Ok | QDialogButtonBox::Cancel),
      document_(document),
      place_(document.flight().database(), near, document.settings().icaoPrefix) {
    buttons().button(QDialogButtonBox::Ok)->setText(toQString(TextId::FindButton));
    addTallRow(place_);
    addNote(message_);
    setPreferredWidth(11 * kRowPixels);
    place_.onChange = [this] { message_.clear(); };
    place_.onChosen = [this] { accept(); };
    place_.setFocus();
}

void FindSheet::accept() {
    const PlaceChoice choice = place_.choice();
    const DatabaseRecord* found =
        document_.flight().database().Find(choice.identifier, choice.where);
    if (found == nullptr)
        return message_.setText(toQString(TextId::NotFound));
    auto record = found->Clone();
    QDialog::accept();
    if (onFound)
        onFound(std::move(record));
}

}  // namespace korvel
