#include "window/sheets/EmergencySheet.h"

#include <cstdlib>

#include "cockpit/CKorvelDoc.h"
#include "cockpit/NearAirports.h"
#include "config/texts/AircraftTexts.h"
#include "geo/GeoText.h"
#include "window/QtText.h"

namespace korvel {
namespace {

constexpr int kUpdateMs = 1000;
constexpr double kLarge = 1.8;  // of the sheet's letters

std::string wayText(const EmergencyField& field, const CockpitData& data) {
    return formatText(kAircraftTexts.emergencyWay,
                      {courseText(field.airport.bearingMagDeg),
                       distanceTenthsText(field.airport.distanceNm, data.distanceUnit)});
}

std::string glideText(const EmergencyField& field, int altUnit) {
    if (!field.arrivalFt)
        return std::string(text(kAircraftTexts.emergencyUnknown));
    const std::string height = altitudeText(std::abs(*field.arrivalFt), altUnit);
    return formatText(
        field.isInGlide() ? kAircraftTexts.emergencyGlide : kAircraftTexts.emergencyShort,
        {height});
}

}  // namespace

EmergencySheet::EmergencySheet(QWidget* parent, CKorvelDoc& document)
    : Sheet(parent, toQString(kAircraftTexts.emergency), QDialogButtonBox::NoButton),
      document_(document),
      fields_(document.emergency().fields(document.cockpitData())) {
    QFont large = font();
    large.setPixelSize(static_cast<int>(kUsualLetters * kLarge));
    large.setBold(true);
    way_.setFont(large);
    details_.setWordWrap(true);
    QSizePolicy narrow(QSizePolicy::Ignored, QSizePolicy::Preferred);  // lines do not widen it
    narrow.setHeightForWidth(true);
    details_.setSizePolicy(narrow);
    addRow(way_);
    addRow(details_);
    for (std::size_t i = 0; i < fields_.size(); ++i)
        (new QListWidgetItem(&list_))->setSizeHint({0, kRowPixels});
    addTallRow(list_);
    for (QPushButton* button : {&end_, &fly_}) {
        button->setMinimumSize(3 * kRowPixels, kRowPixels);
        buttons().addButton(button, QDialogButtonBox::ActionRole);
    }
    end_.setText(toQString(kAircraftTexts.emergencyEnd));
    end_.setAutoDefault(false);
    end_.setVisible(document.emergency().isOn());
    fly_.setDefault(true);
    fly_.setEnabled(!fields_.empty());
    connect(&fly_, &QPushButton::clicked, this, [this] { accept(); });
    connect(
        &end_, &QPushButton::clicked, this,
        [this] {
            const std::string said = document_.emergency().end();
            Sheet::accept();
            if (onDone)
                onDone(said);
        });
    connect(&list_, &QListWidget::currentRowChanged, this, [this] { showField(); });
    setPreferredWidth(11 * kRowPixels);
    connect(&timer_, &QTimer::timeout, this, [this] { update(); });
    timer_.start(kUpdateMs);
    list_.setCurrentRow(0);
    update();
    list_.setFocus();
}

void EmergencySheet::update() {
    const CockpitData& now = document_.cockpitData();
    for (std::size_t i = 0; i < fields_.size(); ++i) {
        EmergencyField& field = fields_[i];
        field.follow(now);
        const std::string glide =
            field.isInGlide() ? "   " + std::string(text(kAircraftTexts.glide)) : std::string();
        list_.item(static_cast<int>(i))
            ->setText(toQString(field.airport.ident + "   " + wayText(field, now) + "   " +
                                runwayText(field.airport, now.altUnit) + glide));
    }
    showField();
}

void EmergencySheet::showField() {
    const CockpitData& now = document_.cockpitData();
    const auto row = static_cast<std::size_t>(list_.currentRow());
    if (row >= fields_.size()) {
        way_.setText(toQString(kAircraftTexts.emergency));
        return details_.setText(toQString(kAircraftTexts.emergencyNone));
    }
    const EmergencyField& field = fields_[row];
    way_.setText(toQString(field.airport.ident + "   " + wayText(field, now)));
    std::string words = field.airport.name + "\n" + glideText(field, now.altUnit) + "\n";
    if (const std::string runway = runwayText(field.airport, now.altUnit); !runway.empty())
        words += runway + "\n";
    for (const std::string& frequency : field.airport.frequencies)
        words += frequency + "   ";
    words += text(kAircraftTexts.emergencyFrequency);
    if (!now.position && now.positionAgeSec)
        words += "\n" + formatText(kAircraftTexts.positionOld, {ageText(*now.positionAgeSec)});
    details_.setText(toQString(words));
    fly_.setText(toQString(formatText(kAircraftTexts.emergencyFly, {field.airport.ident})));
}

void EmergencySheet::accept() {
    const auto row = static_cast<std::size_t>(list_.currentRow());
    if (row >= fields_.size())
        return;
    const std::string said = document_.emergency().flyTo(fields_[row].airport);
    Sheet::accept();
    if (onDone)
        onDone(said);
}

}  // namespace korvel
