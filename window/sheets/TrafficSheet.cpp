#include "window/sheets/TrafficSheet.h"

#include <string>

#include "cockpit/CKorvelDoc.h"
#include "cockpit/TrafficWatch.h"
#include "config/texts/TrafficTexts.h"
#include "geo/GeoText.h"
#include "window/QtText.h"

namespace korvel {
namespace {

constexpr int kUpdateMs = 1000;

}  // namespace

TrafficSheet::TrafficSheet(QWidget* parent, CKorvelDoc& document)
    : Sheet(parent, toQString(kTrafficTexts.title), QDialogButtonBox::Close), document_(document) {
    const TrafficChoice& choice = document.trafficChoice();
    shown_.setText(toQString(kTrafficTexts.shown));
    shown_.setChecked(choice.shown);
    withinName_.setText(toQString(kTrafficTexts.within));
    withinName_.setBuddy(&within_);
    for (const int feet : {1000, 2000, 3500, 10000})
        within_.addItem(toQString(altitudeText(feet, document.settings().altUnit)), feet);
    within_.addItem(toQString(kTrafficTexts.anyHeight), 0);
    if (within_.findData(choice.withinFt) < 0)
        within_.addItem(toQString(altitudeText(choice.withinFt, document.settings().altUnit)),
                        choice.withinFt);
    within_.setCurrentIndex(within_.findData(choice.withinFt));
    nobody_.setText(toQString(kTrafficTexts.nobody));
    addRow(shown_);
    addRow(withinName_);
    addRow(within_);
    addNote(nobody_);
    addTallRow(list_);
    list_.setSelectionMode(QAbstractItemView::NoSelection);
    setPreferredWidth(11 * kRowPixels);
    connect(
        &shown_, &QCheckBox::toggled, this, [this] { choose(); });
    connect(
        &within_, &QComboBox::currentIndexChanged, this, [this] { choose(); });
    connect(&timer_, &QTimer::timeout, this, [this] { update(); });
    timer_.start(kUpdateMs);
    update();
}

void TrafficSheet::choose() {
    document_.chooseTraffic(
        {.shown = shown_.isChecked(), .withinFt = within_.currentData().toInt()});
    update();
}

/// Rows that stay keep their place, so that the list does not jump under a finger.
void TrafficSheet::update() {
    const CockpitData& seen = document_.cockpitData();
    const int count = seen.traffic ? static_cast<int>(seen.traffic->size()) : 0;
    while (list_.count() > count)
        delete list_.takeItem(list_.count() - 1);  // NOLINT(*-owning-memory): taken from the list
    for (int i = 0; i < count; ++i) {
        const QString words = toQString(
            trafficText((*seen.traffic)[static_cast<std::size_t>(i)], seen.position, seen.altUnit));
        if (i < list_.count())
            list_.item(i)->setText(words);
        else
            list_.addItem(words);
    }
    nobody_.setVisible(count == 0);
    list_.setVisible(count > 0);
}

}  // namespace korvel
