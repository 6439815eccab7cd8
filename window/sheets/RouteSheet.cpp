#include "window/sheets/RouteSheet.h"

#include <QPushButton>

#include "cockpit/CKorvelDoc.h"
#include "config/Text.h"
#include "config/texts/SheetTexts.h"
#include "geo/Geodesy.h"
#include "geo/Units.h"
#include "nav/plan/RouteCheck.h"
#include "nav/plan/RouteWords.h"
#include "window/QtText.h"

namespace korvel {
namespace {

/// The mark beside a word: its meaning is not left to a colour.
QString marked(const CheckedWord& word) {
    const QString name = QString::fromStdString(word.word).toHtmlEscaped();
    switch (word.kind) {
        case CheckedWord::Kind::Place:
            return QStringLiteral("%1&nbsp;\u2713").arg(name);
        case CheckedWord::Kind::Airway:
            return word.message.empty() ? QStringLiteral("<i>%1</i>&nbsp;\u2713").arg(name)
                                        : QStringLiteral("<b>%1&nbsp;\u2717</b>").arg(name);
        default:
            return QStringLiteral("<b>%1&nbsp;\u2717</b>").arg(name);
    }
}

}  // namespace

RouteSheet::RouteSheet(QWidget* parent, CKorvelDoc& document)
    : Sheet(parent, toQString(kSheetTexts.routeTitle),
            QDialogButtonBox::Ok | QDialogButtonBox::Cancel),
      document_(document) {
    line_.setPlaceholderText(toQString(kSheetTexts.routeHint));
    words_.setWordWrap(true);
    words_.setTextFormat(Qt::RichText);
    words_.setMinimumHeight(3 * kRowPixels);
    words_.setAlignment(Qt::AlignTop);
    for (QWidget* row : std::initializer_list<QWidget*>{&line_, &words_})
        addRow(*row);
    addNote(message_);
    setPreferredWidth(14 * kRowPixels);
    connect(&line_, &QLineEdit::textEdited, this, [this] { check(); });
    line_.setText(
        toQString(routeLine(document.flight().plan().entries(), document.charts().database(),
                            document.cockpitData().position)));
    line_.selectAll();
    line_.setFocus();
    check();
}

void RouteSheet::check() {
    const CockpitData& shown = document_.cockpitData();
    const RouteCheck route =
        checkRoute(typedIdents(line_.text().toStdString()), document_.charts().database(),
                   document_.flight().plan().fixes(), shown.position, shown.distanceUnit);
    QStringList words;
    for (const CheckedWord& word : route.words)
        words.append(marked(word));
    words_.setText(words.join(QStringLiteral(" &nbsp; ")));
    if (route.words.empty() || !route.error.empty())
        return message_.setText(toQString(route.error));
    UnitLabels labels;
    const int total = RoundToInt(ConvertDistance(route.totalNm, shown.distanceUnit, &labels));
    std::string said = formatText(kSheetTexts.routeSummary,
                                  {static_cast<int>(route.count), total, labels.distance});
    for (const std::string& hint : route.hints)
        said += '\n' + hint;
    message_.setText(toQString(said));
}

void RouteSheet::accept() {
    const std::string error =
        document_.flight().plan().enterRoute(typedIdents(line_.text().toStdString()));
    if (error.empty())
        return QDialog::accept();
    message_.setText(toQString(error));
    line_.setFocus();
}

}  // namespace korvel
