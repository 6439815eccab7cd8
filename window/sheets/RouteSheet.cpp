#include "window/sheets/RouteSheet.h"

#include <utility>

#include <QRegularExpression>
#include <QSignalBlocker>

#include "cockpit/CKorvelDoc.h"
#include "config/Text.h"
#include "config/texts/SheetTexts.h"
#include "geo/Geodesy.h"
#include "geo/Units.h"
#include "nav/plan/RouteCheck.h"
#include "nav/plan/RouteWords.h"
#include "window/QtText.h"
#include "window/sheets/PlaceLine.h"

namespace korvel {
namespace {

/// The mark beside a word: its meaning is not left to a colour.
QString marked(const CheckedWord& word) {
    const QString name = QString::fromStdString(word.word).toHtmlEscaped();
    switch (word.kind) {
        case CheckedWord::Kind::Place:
            return word.message.empty() ? QStringLiteral("%1&nbsp;\u2713").arg(name)
                                        : QStringLiteral("<b>%1&nbsp;\u2717</b>").arg(name);
        case CheckedWord::Kind::Airway:
            return word.message.empty() ? QStringLiteral("<i>%1</i>&nbsp;\u2713").arg(name)
                                        : QStringLiteral("<b>%1&nbsp;\u2717</b>").arg(name);
        default:
            return QStringLiteral("<b>%1&nbsp;\u2717</b>").arg(name);
    }
}

/// Where a word of the line begins, and how long it is.
std::pair<qsizetype, qsizetype> wordAt(const QString& line, std::size_t number) {
    static const QRegularExpression kWord(QStringLiteral("\\S+"));
    auto words = kWord.globalMatch(line);
    for (std::size_t i = 0; words.hasNext(); ++i)
        if (const auto word = words.next(); i == number)
            return {word.capturedStart(), word.capturedLength()};
    return {line.size(), 0};
}

}  // namespace

RouteSheet::RouteSheet(QWidget* parent, CKorvelDoc& document)
    : Sheet(parent, toQString(kSheetTexts.routeTitle),
            QDialogButtonBox::Ok | QDialogButtonBox::Cancel),
      document_(document) {
    help_.setText(toQString(kSheetTexts.routeHelp));
    help_.setWordWrap(true);
    help_.setTextFormat(Qt::PlainText);
    line_.setPlaceholderText(toQString(kSheetTexts.routeHint));
    starts_.setFocusPolicy(Qt::ClickFocus);
    showPlaces(starts_);
    words_.setWordWrap(true);
    words_.setTextFormat(Qt::RichText);
    words_.setMinimumHeight(2 * kRowPixels);
    words_.setAlignment(Qt::AlignTop);
    addNote(help_);
    addRow(line_);
    addTallRow(starts_);
    addRow(words_);
    addNote(message_);
    setPreferredWidth(14 * kRowPixels);
    connect(
        &line_, &QLineEdit::textEdited, this,
        [this] {
            offerStarts();
            check();
        });
    connect(&starts_, &QListWidget::currentRowChanged, this, [this] { check(); });
    const std::string line = document.flight().plan().routeLine();
    // Ready to go on typing: behind a space, with nothing selected that a key would wipe out.
    line_.setText(toQString(line.empty() || line.ends_with(' ') ? line : line + ' '));
    line_.setFocus();
    line_.setCursorPosition(static_cast<int>(line_.text().size()));
    offerStarts();
    check();
}

/// A dialog that comes up hands the focus over as if by the tab key, which selects the whole line.
void RouteSheet::setVisible(bool visible) {
    Sheet::setVisible(visible);
    if (visible)
        line_.setCursorPosition(static_cast<int>(line_.text().size()));
}

std::string RouteSheet::typed() const { return typedIdents(line_.text().toStdString()); }

std::optional<GeoPoint> RouteSheet::start() const {
    const int row = starts_.currentRow();
    return row >= 0 ? std::optional(startPlaces_.at(static_cast<std::size_t>(row)).position)
                    : knownStart();
}

std::optional<GeoPoint> RouteSheet::knownStart() const {
    const std::vector<PlanWaypoint> plan = document_.flight().plan().entries();
    const std::vector<std::string> words = SplitWords(typed());
    if (!plan.empty() && !words.empty() &&
        identOfKey(RouteWord::parse(words.front()).ident) == plan.front().record->ident.view())
        return plan.front().position();
    return document_.cockpitData().position;
}

bool RouteSheet::mustChoose() const { return !startPlaces_.empty() && starts_.currentRow() < 0; }

void RouteSheet::offerStarts() {
    std::vector<PlaceMatch> places =
        firstPlaces(typed(), document_.charts().database(), knownStart());
    if (places == startPlaces_)
        return starts_.setVisible(!places.empty());
    const QSignalBlocker blocker(starts_);
    starts_.clear();
    startPlaces_ = std::move(places);
    for (const PlaceMatch& place : startPlaces_)
        addPlaceRow(starts_, place, document_.cockpitData().distanceUnit, {});
    starts_.setCurrentRow(-1);
    starts_.setVisible(!startPlaces_.empty());
}

RouteCheck RouteSheet::checked() const {
    return checkRoute(typed(), document_.charts().database(), document_.flight().plan().fixes(),
                      {.present = start(), .icaoPrefix = document_.settings().icaoPrefix},
                      document_.cockpitData().distanceUnit);
}

void RouteSheet::check() { say(checked()); }

void RouteSheet::say(const RouteCheck& route) {
    QStringList words;
    for (const CheckedWord& word : route.words)
        words.append(marked(word));
    words_.setText(words.join(QStringLiteral(" &nbsp; ")));
    if (mustChoose())
        return message_.setText(toQString(
            formatText(kSheetTexts.firstWordUnclear, {std::string_view(startPlaces_.front().ident),
                                                      static_cast<int>(startPlaces_.size())})));
    if (route.words.empty() || !route.error.empty())
        return message_.setText(toQString(route.error));
    UnitLabels labels;
    const int total =
        RoundToInt(ConvertDistance(route.totalNm, document_.cockpitData().distanceUnit, &labels));
    std::string said = formatText(kSheetTexts.routeSummary,
                                  {static_cast<int>(route.count), total, labels.distance});
    for (const std::string& hint : route.hints)
        said += '\n' + hint;
    message_.setText(toQString(said));
}

/// The wrong word is selected: typing replaces it.
void RouteSheet::refuse(const RouteCheck& route) {
    std::string said = route.error;
    if (document_.flight().plan().hasPlan())
        said.append("\n").append(text(kSheetTexts.planStays));
    message_.setText(toQString(said));
    line_.setFocus();
    const auto [begin, length] = wordAt(line_.text(), route.errorWord);
    line_.setSelection(static_cast<int>(begin), static_cast<int>(length));
}

void RouteSheet::accept() {
    if (mustChoose()) {
        check();
        return starts_.setFocus();
    }
    const std::string error = document_.flight().plan().enterRoute(typed(), start());
    if (error.empty())
        return QDialog::accept();
    RouteCheck route = checked();
    route.error = error;
    refuse(route);
}

}  // namespace korvel
