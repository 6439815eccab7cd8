#include "window/sheets/PlaceSheet.h"

#include <utility>

#include <QLabel>

#include "cockpit/CKorvelDoc.h"
#include "config/texts/SheetTexts.h"
#include "config/texts/StatusTexts.h"
#include "geo/GeoText.h"
#include "geo/Geodesy.h"
#include "nav/plan/PlanEdit.h"
#include "window/QtText.h"

namespace korvel {
namespace {

constexpr int kStateMs = 500;

/// Where it is, and where that is from the aircraft.
std::string positionText(const CockpitData& data, GeoPoint place) {
    std::string lines = coordinatesText(place) + '\n';
    if (!data.position)
        return lines;
    return lines + distanceText(DistanceNm(*data.position, place), data.distanceUnit) + "   " +
           courseText(TrueCourseDeg(*data.position, place), data.variationDeg) + '\n';
}

/// What a press of the button does.
Text favouriteText(CKorvelDoc& document, const DatabaseRecord& record) {
    return document.knownPlaces().isFavourite(record) ? kSheetTexts.favouriteRemove
                                                      : kSheetTexts.favouriteAdd;
}

}  // namespace

std::string placeText(const CKorvelDoc& document, const DatabaseRecord& record) {
    const CockpitData& data = document.cockpitData();
    std::string lines = std::string(record.ident.view()) + "   " + std::string(record.GetName());
    if (record.pastDate)
        lines += "   " + std::string(text(kStatusTexts.expired));
    lines += '\n';
    if (const std::string info = record.GetInfoText(); !info.empty())
        lines += info + '\n';
    if (IsValid(record.position))
        lines += positionText(data, record.position);
    return lines;
}

PlaceSheet::PlaceSheet(QWidget* parent, CKorvelDoc& document,
                       const std::shared_ptr<const DatabaseRecord>& record, Words words)
    // The cross closes it: with five buttons a sixth would not fit a window of 640 pixels.
    : Sheet(parent, toQString(record->ident.view()), QDialogButtonBox::NoButton),
      words_(std::move(words)) {
    auto* page = new QWidget;  // the scroll area takes it
    content_ = new QHBoxLayout(page);
    auto* label = new QLabel(toQString(words_()));  // its layout's parent's
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    label->setAlignment(Qt::AlignTop);
    content_->addWidget(label, 1);
    connect(&timer_, &QTimer::timeout, label, [this, label] {
        // A label lays itself out anew with every text, also with the same one.
        if (const QString now = toQString(words_()); now != label->text())
            label->setText(now);
    });
    timer_.start(kStateMs);
    scroll_.setWidget(page);
    scroll_.setWidgetResizable(true);
    setPreferredWidth(13 * kRowPixels);
    addTallRow(scroll_);
    addButton(direct_, kSheetTexts.directToTitle, [this, record] {
        QDialog::accept();
        if (onDirectTo)
            onDirectTo({.identifier = record->key, .where = record->position});
    });
    direct_.setDefault(true);
    addButton(add_, kSheetTexts.addToPlan, [this, &document, record] {
        ActivePlan& plan = document.flight().plan();
        PlanEntries entries = plan.entries();
        const std::size_t end = entries.size();
        plan.replace(withRecord(std::move(entries), end, record));
        QDialog::accept();
        if (onAdded)
            onAdded(std::string(record->ident.view()));
    });
    addButton(favourite_, favouriteText(document, *record), [this, &document, record] {
        KnownPlaces& known = document.knownPlaces();
        known.setFavourite(*record, !known.isFavourite(*record));
        favourite_.setText(toQString(favouriteText(document, *record)));
    });
    addButton(show_, kSheetTexts.showOnMap, [this, record] {
        QDialog::accept();
        if (onShow)
            onShow(record->position);
    });
}

void PlaceSheet::addButton(QPushButton& button, Text text, const std::function<void()>& handler) {
    button.setText(toQString(text));
    button.setAutoDefault(false);
    button.setMinimumHeight(kRowPixels);
    buttons().addButton(&button, QDialogButtonBox::ActionRole);
    connect(&button, &QPushButton::clicked, this, handler);
}

}  // namespace korvel
