#include "window/sheets/DirectToSheet.h"

#include <QPushButton>

#include "cockpit/CKorvelDoc.h"
#include "config/StringTable.h"
#include "nav/plan/RouteWords.h"
#include "window/QtText.h"

namespace korvel {

DirectToSheet::DirectToSheet(QWidget* parent, CKorvelDoc& document, const PlaceChoice& place)
    : Sheet(parent, toQString(TextId::DirectToTitle),
            QDialogButtonBox::Ok | QDialogButtonBox::Cancel),
      document_(document),
      place_(document.flight().database(), document.cockpitData().position,
             document.settings().icaoPrefix) {
    buttons().button(QDialogButtonBox::Ok)->setText(toQString(TextId::DirectToTitle));
    course_.setPlaceholderText(toQString(TextId::CourseHint));
    altitude_.setPlaceholderText(toQString(TextId::AltitudeHint));
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
        return refuse(std::string(text(TextId::InvalidAltitude)));
    ActiveNavigation& navigation = document_.flight().navigation();
    const std::uint64_t before = navigation.announcement().number;
    const PlaceChoice place = place_.choice();
    const std::string said = navigation.DirectTo(
        place.identifier, course_.text().trimmed().toStdString(), *altitudeFt, place.where);
    if (navigation.announcement().number == before)
        return refuse(said);
    QDialog::accept();
    if (onDone)
        onDone(said);
}

}  // namespace korvel
