#include "window/sheets/FindSheet.h"

#include <QPushButton>

#include "cockpit/CKorvelDoc.h"
#include "config/texts/FlightTexts.h"
#include "config/texts/SheetTexts.h"
#include "window/QtText.h"

namespace korvel {

FindSheet::FindSheet(QWidget* parent, CKorvelDoc& document, std::optional<GeoPoint> near)
    : Sheet(parent, toQString(kSheetTexts.findTitle),
            QDialogButtonBox::Ok | QDialogButtonBox::Cancel),
      document_(document),
      place_(document, near) {
    buttons().button(QDialogButtonBox::Ok)->setText(toQString(kSheetTexts.findButton));
    addTallRow(place_);
    addNote(message_);
    setPreferredWidth(11 * kRowPixels);
    place_.onChange = [this] { message_.clear(); };
    place_.onChosen = [this] { accept(); };
    place_.setFocus();
}

void FindSheet::accept() {
    if (const std::string question = place_.question(); !question.empty())
        return message_.setText(toQString(question));
    const PlaceChoice choice = place_.choice();
    const DatabaseRecord* found =
        document_.charts().database().Find(choice.identifier, choice.where);
    if (found == nullptr)
        return message_.setText(toQString(kFlightTexts.notFound));
    auto record = found->Clone();
    document_.knownPlaces().note(*record);
    QDialog::accept();
    if (onFound)
        onFound(std::move(record));
}

}  // namespace korvel
