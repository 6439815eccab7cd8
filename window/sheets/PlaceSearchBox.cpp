#include "window/sheets/PlaceSearchBox.h"

#include <QKeyEvent>

#include "cockpit/CKorvelDoc.h"
#include "config/Text.h"
#include "config/texts/SheetTexts.h"
#include "geo/GeoText.h"
#include "nav/plan/RouteWords.h"
#include "navdb/records/RecordKey.h"
#include "window/QtText.h"
#include "window/sheets/PlaceLine.h"
#include "window/sheets/Sheet.h"

namespace korvel {
namespace {

constexpr std::size_t kMostMatches = 12;

bool isFar(const PlaceMatch& match) { return match.distanceNm.value_or(0) > kSurelyMeantNm; }

Text wordFor(KnownPlace::Reason reason) {
    switch (reason) {
        case KnownPlace::Reason::Favourite:
            return kSheetTexts.placeFavourite;
        case KnownPlace::Reason::InPlan:
            return kSheetTexts.placeInPlan;
        case KnownPlace::Reason::Recent:
            break;
    }
    return kSheetTexts.placeRecent;
}

}  // namespace

PlaceSearchBox::PlaceSearchBox(CKorvelDoc& document, std::optional<GeoPoint> near)
    : document_(document), near_(near) {
    column_.setContentsMargins(0, 0, 0, 0);
    column_.addWidget(&edit_);
    column_.addWidget(&list_);
    edit_.setMinimumHeight(Sheet::kRowPixels);
    edit_.setPlaceholderText(toQString(kSheetTexts.searchHint));
    list_.setMinimumHeight(Sheet::kRowPixels);
    list_.setFocusPolicy(Qt::NoFocus);
    showPlaces(list_);
    edit_.installEventFilter(this);
    setFocusProxy(&edit_);
    connect(
        &edit_, &QLineEdit::textEdited, this,
        [this] {
            given_.reset();
            showMatches();
            if (onChange)
                onChange();
        });
    connect(
        &list_, &QListWidget::currentRowChanged, this,
        [this] {
            if (onChange)
                onChange();
        });
    connect(&list_, &QListWidget::itemDoubleClicked, this, [this] {
        if (onChosen)
            onChosen();
    });
    showKnown();
}

void PlaceSearchBox::addRow(const PlaceMatch& match, const QString& why) {
    addPlaceRow(list_, match, document_.cockpitData().distanceUnit, why);
}

/// Nothing of it is chosen: Enter alone must not fly anywhere.
void PlaceSearchBox::showKnown() {
    list_.clear();
    matches_.clear();
    for (KnownPlace& known : document_.offeredPlaces(near_)) {
        addRow(known.match, toQString(wordFor(known.reason)));
        matches_.push_back(std::move(known.match));
    }
}

void PlaceSearchBox::showMatches() {
    const std::string typed = typedIdents(edit_.text().trimmed().toStdString());
    if (typed.empty())
        return showKnown();
    const NavDatabase& database = document_.charts().database();
    const std::string& prefix = document_.settings().icaoPrefix;
    matches_ = placeMatches(database, typed, near_, kMostMatches);
    if (!prefix.empty())
        matches_ = withPrefixed(std::move(matches_),
                                placeMatches(database, "a." + prefix + typed, near_, kMostMatches));
    list_.clear();
    for (const PlaceMatch& match : matches_)
        addRow(match, {});
    // Only what is spelled just so and near is chosen: a beginning is not a place yet.
    if (!matches_.empty() && matches_.front().isExact && !isFar(matches_.front()))
        list_.setCurrentRow(0);
}

std::string PlaceSearchBox::question() {
    const PlaceMatch* const meant = meantPlace(matches_);
    if (list_.currentRow() >= 0 || given_ || meant == nullptr || !isFar(*meant))
        return {};
    given_ = PlaceChoice{.identifier = meant->key, .where = meant->position};
    return formatText(
        kSheetTexts.farPlace,
        {std::string_view(meant->ident), std::string_view(meant->name),
         std::string_view(distanceText(*meant->distanceNm, document_.cockpitData().distanceUnit))});
}

PlaceChoice PlaceSearchBox::choice() const {
    if (const int row = list_.currentRow(); row >= 0) {
        const PlaceMatch& match = matches_.at(static_cast<std::size_t>(row));
        return {.identifier = match.key, .where = match.position};
    }
    if (given_)
        return *given_;
    return {.identifier = typedIdents(edit_.text().trimmed().toStdString()), .where = near_};
}

void PlaceSearchBox::setHint(Text hint) { edit_.setPlaceholderText(toQString(hint)); }

void PlaceSearchBox::setChoice(const PlaceChoice& choice) {
    if (choice.identifier.empty())
        return;
    edit_.setText(toQString(identOfKey(choice.identifier)));
    edit_.selectAll();
    list_.clear();
    matches_.clear();
    given_ = choice;
}

bool PlaceSearchBox::eventFilter(QObject* watched, QEvent* event) {
    if (watched == &edit_ && event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Down || key == Qt::Key_Up) {
            const int row = list_.currentRow() + (key == Qt::Key_Down ? 1 : -1);
            list_.setCurrentRow(std::clamp(row, 0, std::max(0, list_.count() - 1)));
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
}

}  // namespace korvel
