#include "window/sheets/DirectToSheet.h"

#include <QPushButton>

#include "cockpit/CKorvelDoc.h"
#include "config/Text.h"
#include "config/texts/FlightTexts.h"
#include "config/texts/SheetTexts.h"
#include "nav/plan/RouteWords.h"
#include "window/QtText.h"

namespace korvel {

DirectToSheet::DirectToSheet(QWidget* parent, CKorvelDoc& document, const PlaceChoice& place)
    : Sheet(parent, toQString(kSheetTexts.directToTitle),
            QDialogButtonBox::Ok | QDialogButtonBox::Cancel),
      document_(document),
      place_(document, document.cockpitData().position) {
    buttons().button(QDialogButtonBox::Ok)->setText(toQString(kSheetTexts.directToTitle));
    course_.setPlaceholderText(toQString(kSheetTexts.courseHint));
    altitude_.setPlaceholderText(toQString(kSheetTexts.altitudeHint));
    message_.setObjectName(QStringLiteral("refusal"));
    addTallRow(place_);
    for (QWidget* row : std::initializer_list<QWidget*>{&course_, &altitude_})
        addRow(*row);
    addNote(message_);
    setPreferredWidth(11 * kRowPixels);
    place_.onChange = [this] { message_.clear(); };
    place_.onChosen = [this] { accept(); };
    place_.setChoice(place);
    place_.setFocus();
}

void DirectToSheet::refuse(const std::string& message) {
    message_.setText(toQString(message));
    place_.setFocus();
}

void DirectToSheet::accept() {
    const auto altitudeFt = typedAltitude(altitude_.text().toStdString());
    if (!altitudeFt)
        return refuse(std::string(text(kFlightTexts.invalidAltitude)));
    if (const std::string question = place_.question(); !question.empty())
        return refuse(question);
    ActiveNavigation& navigation = document_.flight().navigation();
    const std::uint64_t before = navigation.announcement().number;
    const PlaceChoice place = place_.choice();
    const std::string said = navigation.DirectTo(
        place.identifier, course_.text().trimmed().toStdString(), *altitudeFt, place.where);
    if (navigation.announcement().number == before)
        return refuse(said);
    if (const auto& record = navigation.directRecord())
        document_.knownPlaces().note(*record);
    QDialog::accept();
    if (onDone)
        onDone(said);
}

}  // namespace korvel
