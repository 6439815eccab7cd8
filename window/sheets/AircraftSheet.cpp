#include "window/sheets/AircraftSheet.h"

#include "cockpit/CKorvelDoc.h"
#include "config/texts/AircraftTexts.h"
#include "window/QtText.h"
#include "window/sheets/NumberRow.h"

namespace korvel {

AircraftSheet::AircraftSheet(QWidget* parent, CKorvelDoc& document)
    : Sheet(parent, toQString(kAircraftTexts.title),
            QDialogButtonBox::Ok | QDialogButtonBox::Cancel),
      document_(document) {
    const auto& aircraft = document.aircraft().aircraft();
    const AircraftForm shown = AircraftForm::of(aircraft.value_or(AircraftProfile{}));
    hint_.setText(toQString(kAircraftTexts.hint));
    hint_.setWordWrap(true);
    addRow(hint_);
    message_.setObjectName(QStringLiteral("refusal"));
    addNote(message_);
    form_.setSpacing(6);
    form_.setRowWrapPolicy(QFormLayout::WrapLongRows);
    column().addLayout(&form_);
    name_.setText(toQString(shown.name));
    name_.setMinimumHeight(kRowPixels);
    name_.setAccessibleName(toQString(kAircraftTexts.name));
    form_.addRow(toQString(kAircraftTexts.name), &name_);
    unit_.addItems({toQString(kAircraftTexts.litres), toQString(kAircraftTexts.gallons)});
    unit_.setCurrentIndex(static_cast<int>(shown.fuelUnit));
    unit_.setMinimumHeight(kRowPixels);
    unit_.setAccessibleName(toQString(kAircraftTexts.fuelUnit));
    form_.addRow(toQString(kAircraftTexts.fuelUnit), &unit_);
    for (QWidget* field : std::initializer_list<QWidget*>{&name_, &unit_})
        form_.labelForField(field)->setMinimumHeight(kRowPixels);
    for (std::size_t i = 0; i < aircraftNumbers().size(); ++i) {
        const AircraftNumber& number = aircraftNumbers()[i];
        QLineEdit& line = numbers_.emplace_back();
        line.setText(toQString(shown.numbers[i]));
        addNumberRow(form_, line, toQString(number.name), number.step, number.decimals);
    }
    remove_.setText(toQString(kAircraftTexts.remove));
    remove_.setAutoDefault(false);
    remove_.setMinimumSize(2 * kRowPixels, kRowPixels);
    remove_.setEnabled(aircraft.has_value());
    buttons().addButton(&remove_, QDialogButtonBox::ActionRole);
    connect(&remove_, &QPushButton::clicked, this, [this] {
        document_.aircraft().choose(std::nullopt);
        Sheet::accept();
    });
    setPreferredWidth(13 * kRowPixels);
    name_.setFocus();
}

void AircraftSheet::accept() {
    AircraftForm form{.name = name_.text().trimmed().toStdString(),
                      .fuelUnit = static_cast<FuelUnit>(unit_.currentIndex()),
                      .numbers = {}};
    for (const QLineEdit& line : numbers_)
        form.numbers.push_back(line.text().toStdString());
    AircraftProfile aircraft;
    const std::string error = form.read(aircraft);
    message_.setText(toQString(error));
    if (!error.empty())
        return;
    document_.aircraft().choose(aircraft);
    Sheet::accept();
}

}  // namespace korvel
