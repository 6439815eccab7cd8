#include "window/sheets/CourseSheet.h"

#include <QPushButton>

#include "base/TextNumbers.h"
#include "cockpit/CKorvelDoc.h"
#include "config/Text.h"
#include "config/texts/FlightTexts.h"
#include "config/texts/MessageTexts.h"
#include "config/texts/SheetTexts.h"
#include "geo/GeoText.h"
#include "nav/plan/RouteWords.h"
#include "window/QtText.h"

namespace korvel {

CourseSheet::CourseSheet(QWidget* parent, CKorvelDoc& document)
    : Sheet(parent, toQString(kSheetTexts.courseTitle),
            QDialogButtonBox::Ok | QDialogButtonBox::Cancel),
      document_(document),
      place_(document, document.cockpitData().position) {
    place_.setHint(kSheetTexts.pointHint);
    course_.setPlaceholderText(toQString(kSheetTexts.courseWanted));
    message_.setObjectName(QStringLiteral("refusal"));
    addTallRow(place_);
    addRow(course_);
    addNote(message_);
    setPreferredWidth(11 * kRowPixels);
    place_.onChange = [this] { message_.clear(); };
    place_.onChosen = [this] { course_.setFocus(); };
    place_.setFocus();
}

void CourseSheet::refuse(const std::string& message, QWidget& where) {
    message_.setText(toQString(message));
    where.setFocus();
}

CourseSheet::Point CourseSheet::point() {
    const PlaceChoice choice = place_.choice();
    if (const GeoPoint position = parsePositionText(choice.identifier); IsValid(position))
        return {.position = position, .name = coordinatesText(position)};
    const DatabaseRecord* const found =
        document_.charts().database().Find(choice.identifier, choice.where);
    if (found == nullptr)
        return {};
    document_.knownPlaces().note(*found);
    return {.position = found->position, .name = std::string(found->ident.view())};
}

void CourseSheet::accept() {
    if (const std::string question = place_.question(); !question.empty())
        return refuse(question, place_);
    std::string typed = course_.text().trimmed().toStdString();
    std::string_view rest = typed;
    const auto course = scanInt(rest);
    if (!course || !rest.empty())
        return refuse(std::string(text(kFlightTexts.invalidObs)), course_);
    const Point to = point();
    const std::string error =
        document_.flight().navigation().GoToWithCourse(to.position, *course, to.name);
    if (!error.empty())
        return refuse(error, IsValid(to.position) ? static_cast<QWidget&>(course_) : place_);
    QDialog::accept();
    if (onDone)
        onDone(formatText(kMessageTexts.courseTo,
                          {std::string_view(typed + "\u00b0"), std::string_view(to.name)}));
}

}  // namespace korvel
