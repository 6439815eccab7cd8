#include "window/sheets/FuelSheet.h"

#include "base/TextNumbers.h"
#include "cockpit/CKorvelDoc.h"
#include "config/texts/AircraftTexts.h"
#include "window/QtText.h"
#include "window/sheets/NumberRow.h"

namespace korvel {
namespace {

constexpr int kStateMs = 1000;
constexpr int kFuelStep = 5;
constexpr int kDirectionStep = 10;
constexpr int kSpeedStep = 5;

}  // namespace

FuelSheet::FuelSheet(QWidget* parent, CKorvelDoc& document)
    : Sheet(parent, toQString(kAircraftTexts.fuelTitle),
            QDialogButtonBox::Ok | QDialogButtonBox::Cancel),
      document_(document),
      offered_(FuelForm::of(document.cockpitData())) {
    const auto& aircraft = document.aircraft().aircraft();
    fuelState_.setWordWrap(true);
    windState_.setWordWrap(true);
    message_.setObjectName(QStringLiteral("refusal"));
    form_.setSpacing(6);
    form_.setRowWrapPolicy(QFormLayout::WrapLongRows);
    addRow(fuelState_);
    addRow(windState_);
    addNote(message_);
    column().addLayout(&form_);
    fuel_.setText(toQString(offered_.fuel));
    if (aircraft)
        addNumberRow(form_, fuel_, toQString(fuelOnBoardName(aircraft->fuelUnit)), kFuelStep, 0);
    else
        fuel_.hide();
    windFrom_.setText(toQString(offered_.windFrom));
    windSpeed_.setText(toQString(offered_.windSpeed));
    addNumberRow(form_, windFrom_, toQString(kAircraftTexts.windFrom), kDirectionStep, 0);
    addNumberRow(form_, windSpeed_, toQString(kAircraftTexts.windSpeed), kSpeedStep, 0);
    column().addStretch();
    full_.setText(toQString(kAircraftTexts.fuelFull));
    full_.setEnabled(aircraft.has_value());
    aircraft_.setText(toQString(kAircraftTexts.title));
    for (QPushButton* button : {&full_, &aircraft_}) {
        button->setAutoDefault(false);
        button->setMinimumSize(2 * kRowPixels, kRowPixels);
        buttons().addButton(button, QDialogButtonBox::ActionRole);
    }
    connect(
        &full_, &QPushButton::clicked, this,
        [this] {
            fuel_.setText(toQString(formatFixed(document_.aircraft().aircraft()->usableFuel, 0)));
            fuel_.setFocus();
        });
    connect(&aircraft_, &QPushButton::clicked, this, [this] {
        if (onAircraft)
            onAircraft();
    });
    setPreferredWidth(13 * kRowPixels);
    connect(&timer_, &QTimer::timeout, this, [this] { showState(); });
    timer_.start(kStateMs);
    showState();
    (aircraft ? fuel_ : windFrom_).setFocus();
}

void FuelSheet::showState() {
    fuelState_.setText(toQString(fuelStateText(document_.cockpitData())));
    windState_.setText(toQString(windStateText(document_.cockpitData())));
}

/// What the pilot left alone stays as it is, with its age.
void FuelSheet::accept() {
    const FuelForm form{.fuel = fuel_.text().trimmed().toStdString(),
                        .windFrom = windFrom_.text().trimmed().toStdString(),
                        .windSpeed = windSpeed_.text().trimmed().toStdString()};
    FuelForm::Entry entry;
    const std::string error =
        form.read(document_.aircraft().aircraft().value_or(AircraftProfile{}), entry);
    message_.setText(toQString(error));
    if (!error.empty())
        return;
    if (form.fuel != offered_.fuel)
        document_.aircraft().enterFuel(entry.fuel);
    if (form.windFrom != offered_.windFrom || form.windSpeed != offered_.windSpeed)
        document_.aircraft().enterWind(entry.wind);
    Sheet::accept();
}

}  // namespace korvel
