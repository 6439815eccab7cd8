#include "window/sheets/PlaceSearchBox.h"

#include <QKeyEvent>

#include "config/texts/SheetTexts.h"
#include "config/texts/StatusTexts.h"
#include "geo/GeoText.h"
#include "geo/Units.h"
#include "nav/plan/RouteWords.h"
#include "navdb/records/RecordKey.h"
#include "window/QtText.h"
#include "window/sheets/KindWord.h"
#include "window/sheets/Sheet.h"

namespace korvel {
namespace {

constexpr std::size_t kMostMatches = 12;

QString lineOf(const PlaceMatch& match, DistanceUnit unit) {
    QString line =
        QStringLiteral("%1   %2").arg(QString::fromStdString(match.ident), kindWord(match.kind));
    if (match.name != match.ident && !match.name.empty())
        line += QStringLiteral("   ") + QString::fromStdString(match.name);
    if (match.distanceNm) {
        UnitLabels labels;
        const double distance = ConvertDistance(*match.distanceNm, unit, &labels);
        line += QStringLiteral("   %1 %2")
                    .arg(QString::number(distance, 'f', distance < 100 ? 1 : 0),
                         toQString(labels.distance));
    }
    if (match.expired)
        line += QStringLiteral("   ") + toQString(kStatusTexts.expired);
    return line;
}

}  // namespace

PlaceSearchBox::PlaceSearchBox(const NavDatabase& database, std::optional<GeoPoint> near,
                               std::string prefix, DistanceUnit unit)
    : database_(database), near_(near), prefix_(std::move(prefix)), unit_(unit) {
    column_.setContentsMargins(0, 0, 0, 0);
    column_.addWidget(&edit_);
    column_.addWidget(&list_);
    edit_.setMinimumHeight(Sheet::kRowPixels);
    edit_.setPlaceholderText(toQString(kSheetTexts.identifierHint));
    list_.setMinimumHeight(Sheet::kRowPixels);
    list_.setFocusPolicy(Qt::NoFocus);
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
}

void PlaceSearchBox::showMatches() {
    const std::string typed = typedIdents(edit_.text().trimmed().toStdString());
    matches_ = typed.empty() ? std::vector<PlaceMatch>()
                             : placeMatches(database_, typed, near_, kMostMatches);
    if (!typed.empty() && !prefix_.empty())
        matches_ = withPrefixed(std::move(matches_), placeMatches(database_, "a." + prefix_ + typed,
                                                                  near_, kMostMatches));
    list_.clear();
    for (const PlaceMatch& match : matches_) {
        auto* item = new QListWidgetItem(lineOf(match, unit_), &list_);  // the list owns it
        item->setSizeHint({0, Sheet::kRowPixels});
    }
    // Only what is spelled just so is chosen: a beginning is not a place yet.
    if (!matches_.empty() && (matches_.front().ident == typed || matches_.front().key == typed))
        list_.setCurrentRow(0);
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

void PlaceSearchBox::setChoice(const PlaceChoice& choice) {
    if (choice.identifier.empty())
        return;
    edit_.setText(toQString(identOfKey(choice.identifier)));
    edit_.selectAll();
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
