#include "window/sheets/NearestSheet.h"

#include "cockpit/CKorvelDoc.h"
#include "config/texts/AircraftTexts.h"
#include "geo/GeoText.h"
#include "window/QtText.h"

namespace korvel {

NearestSheet::NearestSheet(QWidget* parent, CKorvelDoc& document)
    : Sheet(parent, toQString(kAircraftTexts.nearestTitle), QDialogButtonBox::Close),
      document_(document) {
    const NearestFilter& filter = document.nearestFilter();
    const int altUnit = document.settings().altUnit;
    lengthName_.setText(toQString(kAircraftTexts.runwayLength));
    lengthName_.setBuddy(&length_);
    length_.setAccessibleName(lengthName_.text());
    length_.addItem(toQString(kAircraftTexts.anyLength), 0);
    // 300 to 1800 m, or round numbers of feet.
    for (const int feet : {1000, 1500, 2000, 2500, 3000, 4000, 6000}) {
        constexpr int kFeetPerStep = 328;  // a hundred metres
        const int length = altUnit == 1 ? feet / 500 * kFeetPerStep * 3 / 2 : feet;
        length_.addItem(toQString(altitudeText(length, altUnit)), length);
    }
    if (length_.findData(filter.fromRunwayFt) < 0)
        length_.addItem(toQString(altitudeText(filter.fromRunwayFt, altUnit)), filter.fromRunwayFt);
    length_.setCurrentIndex(length_.findData(filter.fromRunwayFt));
    hard_.setText(toQString(kAircraftTexts.hardOnly));
    hard_.setChecked(filter.hardOnly);
    addRow(lengthName_);
    addRow(length_);
    addRow(hard_);
    column().addStretch();
    setPreferredWidth(10 * kRowPixels);
    connect(
        &length_, &QComboBox::currentIndexChanged, this, [this] { choose(); });
    connect(&hard_, &QCheckBox::toggled, this, [this] { choose(); });
    length_.setFocus();
}

void NearestSheet::choose() {
    document_.chooseNearest(
        {.fromRunwayFt = length_.currentData().toInt(), .hardOnly = hard_.isChecked()});
}

}  // namespace korvel
