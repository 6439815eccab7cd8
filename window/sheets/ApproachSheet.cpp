#include "window/sheets/ApproachSheet.h"

#include <utility>

#include "cockpit/CKorvelDoc.h"
#include "config/texts/SheetTexts.h"
#include "config/texts/StatusTexts.h"
#include "geo/GeoText.h"
#include "window/QtText.h"

namespace korvel {
namespace {

QString titleFor(const std::vector<LandingRunway>& runways) {
    if (runways.empty())
        return toQString(kSheetTexts.approachTitle);
    return toQString(
        formatText(kSheetTexts.approachTitleAt, {std::string_view(runways.front().airport)}));
}

Text whyNone(const CKorvelDoc& document) {
    if (!document.settings().apprMode)
        return kSheetTexts.approachOff;
    return document.cockpitData().position ? kSheetTexts.approachNoRunway
                                           : kStatusTexts.noGpsSignal;
}

/// "27L   272°M   6000 ft".
std::string rowText(const LandingRunway& runway, const CockpitData& data) {
    std::string row = runway.id + "     " + courseText(runway.courseTrueDeg, data.variationDeg);
    if (runway.lengthFt)
        row += "     " + altitudeText(*runway.lengthFt, data.altUnit);
    return row;
}

}  // namespace

ApproachSheet::ApproachSheet(QWidget* parent, CKorvelDoc& document,
                             std::vector<LandingRunway> runways)
    : Sheet(parent, titleFor(runways), QDialogButtonBox::Ok | QDialogButtonBox::Cancel),
      document_(document),
      runways_(std::move(runways)) {
    for (const LandingRunway& runway : runways_)
        addRunway(runway);
    addTallRow(list_);
    addNote(none_);
    ApproachMode& mode = document_.flight().approach().mode();
    if (runways_.empty()) {
        none_.setText(toQString(whyNone(document_)));
        list_.hide();
    }
    leave_.setText(toQString(kSheetTexts.approachLeave));
    leave_.setEnabled(mode.runway().has_value());
    leave_.setAutoDefault(false);
    addRow(leave_);
    connect(
        &leave_, &QPushButton::clicked, this,
        [this, &mode] {
            mode.leave();
            QDialog::accept();
        });
    connect(&list_, &QListWidget::itemClicked, this, [this] { accept(); });
    setPreferredWidth(9 * kRowPixels);
    list_.setFocus();
}

void ApproachSheet::addRunway(const LandingRunway& runway) {
    auto* item = new QListWidgetItem(toQString(rowText(runway, document_.cockpitData())), &list_);
    item->setSizeHint({0, kRowPixels});
    const auto& flown = document_.flight().approach().mode().runway();
    if (list_.count() == 1 || (flown && *flown == runway))
        list_.setCurrentItem(item);
}

void ApproachSheet::accept() {
    if (const int row = list_.currentRow(); row >= 0)
        document_.flight().approach().mode().choose(runways_.at(static_cast<std::size_t>(row)));
    Sheet::accept();
}

}  // namespace korvel
